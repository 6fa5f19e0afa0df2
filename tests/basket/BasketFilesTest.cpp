#include "CBasketFileReader.h"
#include "CBasketImportDialog.h"
#include "CBasketListExporter.h"
#include "CBasketSizingSummary.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketsComboBox.h"
#include "CHpfOpConfirmWidget.h"

#include "PanelEnums.h"

#include "CBaseDialog.h"
#include "CMessageBox.h"
#include "COrderParamTable.h"
#include "CStandardTable.h"
#include "CUserConfig.h"
#include "CSampleData.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QUrl>

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>

using TC::CBasketFileReader;
using TC::CBasketListExporter;

namespace {

void addMarket()
{
    sample::addInstrument("SH", "600000", 0x7fffffff, "浦发银行");
    sample::addInstrument("SZ", "000001", 0x7fffffff, "平安银行");
    sample::addInstrument("SH", "600519", 0x7fffffff, "贵州茅台");
    sample::addInstrument("CFFEX", "IF2412", 300, "沪深300指数2412");
    sample::addInstrument("HK", "00700", 0x7fffffff, "腾讯控股");
}

// A row as the preview shows it: the taken line, or why not.
QString describe(const CBasketFileReader::Row &row)
{
    if (row.m_outcome != CBasketFileReader::Taken)
        return CBasketFileReader::outcomeText(row.m_outcome);
    return QStringLiteral("%1 w%2 v%3%4")
        .arg(row.m_data.key())
        .arg(row.m_data.m_weight, 0, 'f', 2)
        .arg(row.m_data.m_volume)
        .arg(row.m_data.m_operationType == ttservice::OT_SELL ? QStringLiteral(" S") : QString());
}

QString describe(const CBasketFileReader::Result &result)
{
    if (!result.m_error.isEmpty())
        return QStringLiteral("error: ") + result.m_error;
    QStringList rows;
    for (const CBasketFileReader::Row &row : result.m_rows)
        rows << describe(row);
    return rows.join(QLatin1Char('|')) + (result.weightsAddUp() ? QString() : QStringLiteral(" [sum]"));
}

QByteArray gbk(const char *utf8)
{
    return QTextCodec::codecForName("GBK")->fromUnicode(QString::fromUtf8(utf8));
}

// An .xlsx written by the library spreadsheet programs' files are compared with: shared
// strings, numbers as numbers.
QByteArray xlsxOf(const QVector<QStringList> &rows)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("in.xlsx"));
    lxw_workbook *workbook = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "组合");
    for (int r = 0; r < rows.size(); ++r) {
        for (int c = 0; c < rows[r].size(); ++c) {
            bool number = false;
            const double value = rows[r][c].toDouble(&number);
            if (number)
                worksheet_write_number(sheet, lxw_row_t(r), lxw_col_t(c), value, nullptr);
            else
                worksheet_write_string(sheet, lxw_row_t(r), lxw_col_t(c), rows[r][c].toUtf8().constData(), nullptr);
        }
    }
    workbook_close(workbook);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray manyRows(int count)
{
    QByteArray bytes("code,weight\n");
    for (int i = 0; i < count; ++i)
        bytes += "600000,0.0001\n";
    return bytes;
}

class BasketFileRead : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        addMarket();
    }
};

// A damaged or odd file gives every row its outcome, or a message: never a crash, never a hang.
TEST_F(BasketFileRead, givesEveryRowItsOutcome)
{
    const struct { const char *name; QByteArray bytes; const char *fileName; bool futuresTab; const char *expected; } rows[] = {
        {"Utf8CommaFractions", "代码,名称,权重\n600000.SH,浦发,0.5\nSZ000001,平安,0.5\n", "a.csv", false,
         "600000.SH w50.00 v0|000001.SZ w50.00 v0"},
        {"GbkSemicolonPercentHeaderDroppedZeros", gbk("证券代码;权重(%)\r\n600000;60\r\n1;40\r\n"), "a.csv", false,
         "600000.SH w60.00 v0|000001.SZ w40.00 v0"},
        {"BomTabEnglishAnyOrder", "\xEF\xBB\xBFWeight\tSide\tCode\tQty\n40%\tsell\tsh600519\t200\n60%\tbuy\t600000\t100\n",
         "a.txt", false, "600519.SH w40.00 v200 S|600000.SH w60.00 v100"},
        {"QuotedDelimiterInName", "code,name,weight\n\"600000\",\"浦发,银行\",\"100\"\n", "a.csv", false,
         "600000.SH w100.00 v0"},
        {"ConnectCodeKeepsItsFiveDigits", "code,weight\n00700,1\n", "a.csv", false, "00700.HK w100.00 v0"},
        {"TitleLineAboveHeader", "组合：测试\n代码,权重\n600000.sh,1\n", "a.csv", false, "600000.SH w100.00 v0"},
        {"EveryRefusal",
         "代码,权重,方向\n600000,50,买\n999999,10,买\n600000,5,买\n000001,abc,买\n600519,-1,买\nIF2412,1,买\n,3,买\n000001,50,hold\n",
         "a.csv", false, "600000.SH w50.00 v0|未知代码|重复|数字有误|权重为负|与页签不符|缺少代码|数字有误 [sum]"},
        {"BadVolumes", "code,volume\n600000,1.5\n000001,-100\n600519,1e20\n600000,300\n", "a.csv", false,
         "数字有误|数字有误|数字有误|600000.SH w100.00 v300"},
        {"NeitherWeightNorVolume", "code,weight,volume\n600000,,\n000001,,200\n", "a.csv", false,
         "数字有误|000001.SZ w100.00 v200"},
        {"FractionsShortOfOne", "code,weight\n600000,0.3\n000001,0.3\n", "a.csv", false,
         "600000.SH w30.00 v0|000001.SZ w30.00 v0 [sum]"},
        // A percent title makes plain numbers percents, small as they are; a number's own % sign
        // keeps it a percent beside plain fractions.
        {"PercentTitleSmallNumbers", "code,weight%\n600000,0.5\n000001,0.5\n", "a.csv", false,
         "600000.SH w0.50 v0|000001.SZ w0.50 v0 [sum]"},
        {"OwnPercentSignAmongFractions", "code,weight\n600000,0.5\n000001,50%\n", "a.csv", false,
         "600000.SH w50.00 v0|000001.SZ w50.00 v0"},
        {"FuturesTabBothSidesStockRefused", "合约代码,手数,买卖方向\nIF2412,2,买\nIF2412,1,卖\n600000,1,买\n", "a.csv", true,
         "IF2412.CFFEX w50.00 v2|IF2412.CFFEX w50.00 v1 S|与页签不符"},
        {"MixedEncodingsStillReadTheCodes", QByteArray("code,name,weight\n600000,浦发,50\n") + gbk("000001,平安,50\n"), "a.csv",
         false, "600000.SH w50.00 v0|000001.SZ w50.00 v0"},
        {"Empty", " \n", "a.csv", false, "error: 文件是空的"},
        {"Binary", QByteArray("\x7f" "ELF\0\0\x01\x02", 8), "a.csv", false, "error: 不是文本或 .xlsx 文件"},
        {"NoCodeColumn", "名称,权重\n浦发,1\n", "a.csv", false, "error: 找不到代码列：第一行应有“代码”或“code”等列名"},
        {"UnclosedQuote", "code,weight\n\"600000,1\n", "a.csv", false, "未知代码"},
        {"MillionRowsRefused", manyRows(1000000), "a.csv", false, "error: 文件超过 10000 行，未导入"},
        {"LimitItself", manyRows(CBasketFileReader::MAX_ROWS).replace("600000,0.0001\n600000", "600000,0.0001\n000001"),
         "a.csv", false, "600000.SH w0.01 v0|000001.SZ w0.01 v0|重复"},
        {"NotAZip", "code,weight\n600000,1\n", "a.xlsx", false, "error: 不是有效的 .xlsx 文件"},
        {"Xlsx", xlsxOf({{"代码", "名称", "权重", "数量"}, {"600000", "浦发", "0.25", "100"}, {"1", "平安", "0.75", "200"}}),
         "b.xlsx", false, "600000.SH w25.00 v100|000001.SZ w75.00 v200"},
        {"DamagedXlsx", xlsxOf({{"代码", "权重"}, {"600000", "1"}}).replace("<", "?"), "b.xlsx", false,
         "error: .xlsx 文件没有可读的工作表"},
        {"TruncatedXlsx", xlsxOf({{"代码", "权重"}, {"600000", "1"}}).left(900), "b.xlsx", false,
         "error: 不是有效的 .xlsx 文件"},
    };
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        QElapsedTimer timer;
        timer.start();
        const CBasketFileReader::Result result = CBasketFileReader::readBytes(c.bytes, QString::fromLatin1(c.fileName), c.futuresTab);
        // Only the first lines of the limit case are compared.
        QString shown = describe(result);
        if (QLatin1String(c.name) == QLatin1String("LimitItself"))
            shown = shown.section(QLatin1Char('|'), 0, 2);
        EXPECT_EQ(shown.toStdString(), std::string(c.expected));
        EXPECT_LT(timer.elapsed(), 5000);
    }
}

CBasketListExporter::Sheet sheetOf(int rows)
{
    CBasketListExporter::Sheet sheet;
    sheet.m_heading = CBasketListExporter::heading(QStringLiteral("红利精选"), TC::TOT_SELL,
                                                   QStringLiteral("2026-11-24 14:30:00"), QStringLiteral("张三"));
    sheet.m_titles = QStringList{QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("数量")};
    for (int i = 0; i < rows; ++i)
        sheet.m_rows.push_back({QStringLiteral("600000"), i == 0 ? QStringLiteral("=浦发,\"银行\"") : QStringLiteral("浦发"),
                                QString::number(100 * (i + 1))});
    return sheet;
}

TEST(BasketListExport, csvHasBomHeadingAndQuotedCellsAndSpreadsheetsRunNoFormula)
{
    const QByteArray bytes = CBasketListExporter::csvBytes(sheetOf(2));
    EXPECT_EQ(bytes.toStdString(),
              std::string("\xEF\xBB\xBF篮子：红利精选  页签：卖出  时间：2026-11-24 14:30:00  用户：张三\r\n"
                          "代码,名称,数量\r\n600000,\"'=浦发,\"\"银行\"\"\",100\r\n600000,浦发,200\r\n"));
}

TEST(BasketListExport, xlsxOfTwentyThousandLinesReadsBackWithNumbers)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("out.xlsx"));
    QString error;
    const CBasketListExporter::Sheet sheet = sheetOf(20000);
    ASSERT_TRUE(CBasketListExporter::write(path, sheet, &error)) << error.toStdString();

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QVector<QStringList> cells = CBasketFileReader::xlsxCells(file.readAll(), 30000, &error);
    ASSERT_EQ(cells.size(), 20002) << error.toStdString();
    EXPECT_EQ(cells[0], QStringList{sheet.m_heading});
    EXPECT_EQ(cells[1], sheet.m_titles);
    EXPECT_EQ(cells[2], (QStringList{QStringLiteral("600000"), QStringLiteral("'=浦发,\"银行\""), QStringLiteral("100")}));
    EXPECT_EQ(cells[20001][2], QStringLiteral("2000000"));
    EXPECT_EQ(CBasketListExporter::write(dir.filePath(QStringLiteral("no/such/dir/out.xlsx")), sheet, &error), false);
}

class BasketImport : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        addMarket();
        sample::storeBasket(QStringLiteral("旧篮子"), {sample::row("SH", "600519", 0, 0)});
        delete picker;
        owner.seen.clear();
        picker = new TC::COpBasketsComboBox(36, &owner);
        picker->setBrokerType(ttservice::BROKER_TYPE_STOCK);
    }
    void TearDown() override { WK::CBaseDialog::clearScriptedAnswer(); }

    QString write(const QByteArray &bytes)
    {
        const QString path = dir.filePath(QStringLiteral("basket.csv"));
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return path;
    }

    static ttservice::CCodeOrderParam line(const std::string &market, const char *code, int64_t volume)
    {
        ttservice::CCodeOrderParam l;
        l.m_account = TC::getUserConfig()->getAccountData(QStringLiteral("a1"));
        l.m_stockInfo = ttservice::CStockInfo(market, code, std::string("股票") + code);
        l.m_operationType = ttservice::OT_BUY;
        l.m_volume = volume;
        return l;
    }

    // The baskets the picker reported chosen.
    QStringList chosen() const
    {
        QStringList names;
        for (const EventRecorder::Seen &seen : owner.seen)
            names << (seen.event == TC::COpBasketsComboBox::EVENT_BASKET_CHOSEN ? seen.text : QString());
        names.removeAll(QString());
        return names;
    }

    static QString basketOf(const QString &name)
    {
        if (!TC::getUserConfig()->baskets().contains(name))
            return QString();
        QStringList keys;
        for (const TC::CBasketStockData &row : TC::getUserConfig()->baskets().value(name).m_stocks)
            keys << row.key();
        return name + QLatin1Char(':') + keys.join(QLatin1Char(','));
    }

    QTemporaryDir dir;
    EventRecorder owner;
    TC::COpBasketsComboBox *picker = nullptr;
};

TEST_F(BasketImport, storesAndChoosesOnlyWhatThePreviewAccepts)
{
    // answer: the user's answer to the preview; input: the name typed, then "\n替换" to tick the replacement;
    // basket: the basket of that name afterwards, as its rows' keys; shown: the preview's refusal, or the
    // message box's text
    const struct { const char *name, *csv; int answer; const char *input; bool stores; const char *basket;
                   const char *shown; } rows[] = {
        {"TakenRowsStoredAndChosen", "代码,权重\n600000,60\n000001,40\n999999,0\n", QDialog::Accepted, "新篮子", true,
         "新篮子:600000.SH,000001.SZ", ""},
        {"CancelStoresNothing", "代码,权重\n600000,100\n", QDialog::Rejected, "新篮子", false, "", ""},
        {"NameInUseRefused", "代码,权重\n600000,100\n", QDialog::Accepted, "旧篮子", false, "旧篮子:600519.SH",
         "已有篮子“旧篮子”：换一个名称，或勾选“替换同名篮子”"},
        {"NameInUseReplacedWhenAsked", "代码,权重\n600000,100\n", QDialog::Accepted, "旧篮子\n替换", true, "旧篮子:600000.SH", ""},
        {"ReservedNameRefused", "代码,权重\n600000,100\n", QDialog::Accepted, "剪贴板组合", false, "", "“剪贴板组合”是保留名称，请换一个"},
        {"WeightsShortRefused", "代码,权重\n600000,50\n999999,50\n", QDialog::Accepted, "新篮子", false, "",
         "导入行的权重合计 50.00%，与 100% 相差超过 0.5 个百分点：请改正文件后再导入"},
        {"UnreadableFileToldInABox", "名称\n浦发\n", QDialog::Accepted, "新篮子", false, "",
         "basket.csv：找不到代码列：第一行应有“代码”或“code”等列名"},
    };
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        SetUp();
        WK::CBaseDialog::setScriptedAnswer(c.answer, QString::fromUtf8(c.input));
        const bool stored = picker->importFile(write(c.csv));

        const QString name = QString::fromUtf8(c.input).section(QLatin1Char('\n'), 0, 0);
        EXPECT_EQ(basketOf(name), QString::fromUtf8(c.basket));
        EXPECT_EQ(stored, c.stores);
        EXPECT_EQ(chosen(), stored ? QStringList{name} : QStringList());
        EXPECT_EQ(picker->currentText(), stored ? name : TC::COpBasketsComboBox::noBasketText());
        // What the user is told: the box of an unreadable file, or why the preview refused.
        QString shown;
        if (!WK::CMessageBox::records().isEmpty()) {
            shown = WK::CMessageBox::records().back().text;
        } else if (!c.stores) {
            TC::CBasketImportDialog dialog(QStringLiteral("basket.csv"), CBasketFileReader::readBytes(c.csv, QString(), false),
                                           ttservice::BROKER_TYPE_STOCK, nullptr);
            dialog.exec();
            shown = dialog.refusal();
        }
        EXPECT_EQ(shown, QString::fromUtf8(c.shown));
        WK::CBaseDialog::clearScriptedAnswer();
    }
}

TEST_F(BasketImport, aFileDroppedOnThePickerOrTheTableIsImported)
{
    WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, QStringLiteral("拖入"));
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(write("code,weight\n600000,1\n"))});
    // A drop goes where the drag was let in.
    auto dropOn = [&mime](QWidget *target) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &drop);
        return enter.isAccepted() && drop.isAccepted();
    };
    EXPECT_TRUE(dropOn(picker));
    EXPECT_EQ(basketOf(QStringLiteral("拖入")), QString()) << "the preview waits until the drop has returned";
    QCoreApplication::processEvents();
    EXPECT_EQ(basketOf(QStringLiteral("拖入")), QStringLiteral("拖入:600000.SH"));

    TC::COpBasketParamsEditWidget wrapper(nullptr);
    QSignalSpy imported(&wrapper, &TC::COpBasketParamsEditWidget::sigImportFile);
    EXPECT_TRUE(dropOn(&wrapper));
    ASSERT_EQ(imported.size(), 1);
    EXPECT_EQ(imported.front().front().toString(), dir.filePath(QStringLiteral("basket.csv")));
}

TEST_F(BasketImport, exportWritesTheRowsInViewInScreenOrderUnderTheHeading)
{
    TC::getUserConfig()->setUserName(QStringLiteral("张三"));
    sample::addAccount("a1", ttservice::BROKER_TYPE_STOCK, ttservice::NO_VALUE);
    std::vector<ttservice::CCodeOrderParam> lines;
    for (const char *code : {"600000", "600519"}) {
        sample::setQuote("SH", code, 10.0, 10.0);
        lines.push_back(line("SH", code, 100));
    }
    TC::COpBasketParamsEditWidget wrapper(nullptr);
    wrapper.setBasketName(QStringLiteral("红利精选"));
    wrapper.setTradeOpType(TC::TOT_BUY);
    wrapper.loadParams(&lines, TC::TOT_BUY, true);
    wrapper.confirmWidget()->table()->sortByColumn(TC::COpBasketConfirmWidget::COL_CODE, Qt::DescendingOrder);

    const QString path = dir.filePath(QStringLiteral("list.csv"));
    ASSERT_TRUE(wrapper.exportList(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    const QStringList written = QString::fromUtf8(bytes).split(QStringLiteral("\r\n"));
    ASSERT_GE(written.size(), 4);
    EXPECT_TRUE(written[0].startsWith(QStringLiteral("篮子：红利精选  页签：买入  时间：")));
    EXPECT_TRUE(written[0].endsWith(QStringLiteral("用户：张三")));
    EXPECT_TRUE(written[1].contains(QStringLiteral("代码")));
    EXPECT_TRUE(written[2].contains(QStringLiteral("600519,股票600519,")));
    EXPECT_TRUE(written[3].contains(QStringLiteral("600000,股票600000,")));
    EXPECT_FALSE(wrapper.exportList(dir.filePath(QStringLiteral("no/such/dir/list.csv"))));
    EXPECT_EQ(WK::CMessageBox::records().size(), 1);
}

// The demo's sample files read as the demo shows them: every good row taken, every bad one
// refused with its reason, weights that come to 100%.
TEST_F(BasketImport, theDemosSampleFilesReadOnTheSampleMarket)
{
    TC::CExchangeClient::instance()->reset();
    const CSampleData sample;
    for (const CSampleInstrument &stock : sample.stocks())
        ::sample::addInstrument(stock.market.toStdString(), stock.code.toStdString(), 0x7fffffff, stock.name.toStdString());
    const struct { const char *file; const char *outcomes; } files[] = {
        {"research-consumer-gbk.csv", "导入*8"},
        {"index-enhanced-with-errors.xlsx", "导入*8|未知代码|重复|数字有误|权重为负|缺少代码"},
    };
    for (const auto &f : files) {
        const CBasketFileReader::Result result =
            CBasketFileReader::readFile(QStringLiteral(BASKET_SAMPLES_DIR "/") + QLatin1String(f.file), false);
        QStringList outcomes;
        for (const CBasketFileReader::Row &row : result.m_rows)
            outcomes << CBasketFileReader::outcomeText(row.m_outcome);
        const QString taken = QStringLiteral("导入*%1").arg(result.m_taken);
        outcomes.erase(std::remove(outcomes.begin(), outcomes.end(), QStringLiteral("导入")), outcomes.end());
        outcomes.prepend(taken);
        EXPECT_EQ(outcomes.join(QLatin1Char('|')), QString::fromUtf8(f.outcomes)) << f.file;
        EXPECT_TRUE(result.weightsAddUp()) << f.file;
        // The preview lists the file's rows and nothing else.
        const TC::CBasketImportDialog preview(QLatin1String(f.file), result, ttservice::BROKER_TYPE_STOCK, nullptr);
        EXPECT_EQ(preview.table()->rowCount(), result.m_rows.size()) << f.file;
    }
}

// The strip under the table against the table itself: money per account to the cent, the lines
// at 0 with their reasons, the drift from the stored basket's weights; it follows a quote tick.
TEST_F(BasketImport, sizingSummaryAgreesWithTheTableToTheCent)
{
    sample::addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e7);
    const QString name = QStringLiteral("三只股票");
    std::vector<ttservice::CCodeOrderParam> lines;
    QList<TC::CBasketStockData> stocks;
    const struct {
        const char *market, *code;
        double last;
        int64_t volume;
    } rows[] = {{"SH", "600000", 10.37, 300}, {"SH", "600519", 1688.88, 100}, {"SZ", "000001", 11.11, 0}};
    for (const auto &row : rows) {
        sample::setQuote(row.market, row.code, row.last, row.last);
        lines.push_back(line(row.market, row.code, row.volume));
        stocks << sample::row(row.market, row.code, 100.0 / 3, 0);
    }
    sample::storeBasket(name, stocks);
    TC::COpBasketParamsEditWidget wrapper(nullptr);
    wrapper.setBasketName(name);
    wrapper.loadParams(&lines, TC::TOT_BUY, true);
    QCoreApplication::processEvents();

    const TC::CBasketSizingSummary::Summary summary = TC::CBasketSizingSummary::compute(*wrapper.confirmWidget(), name);
    ASSERT_EQ(summary.m_accounts.size(), 1);
    double table = 0.0;
    const WK::CBaseNormalTable *shown = wrapper.confirmWidget()->table();
    for (int visual = 0; visual < shown->rowCount(); ++visual)
        table += std::round(shown->itemDouble(shown->rowID(visual), TC::COpBasketConfirmWidget::COL_COST) * 100) / 100;
    EXPECT_DOUBLE_EQ(summary.m_accounts[0].m_money, table);
    EXPECT_DOUBLE_EQ(table, 300 * 10.37 + 100 * 1688.88);
    // Sized weights 1.81%, 98.19% and 0 against a third each.
    EXPECT_EQ(TC::CBasketSizingSummary::lineText(summary),
              QStringLiteral("1 个账户，勾选市值 171,999.00 元，数量为 0 的 1 行；与篮子权重偏离 64.86%（最大 600519.SH 64.86%）"));
    EXPECT_EQ(TC::CBasketSizingSummary::detailTexts(summary),
              QStringList{QStringLiteral("a1：3 行，勾选市值 171,999.00 元；数量为 0：不足一手 1 行")})
        << TC::CBasketSizingSummary::detailTexts(summary).join(QLatin1Char('|')).toStdString();
    // With the money the sizing aimed at, what whole lots and the lines at 0 left unspent.
    const QMap<QString, double> aimed{{QStringLiteral("a1"), 200000.0}};
    EXPECT_EQ(TC::CBasketSizingSummary::detailTexts(TC::CBasketSizingSummary::compute(*wrapper.confirmWidget(), name, aimed)),
              QStringList{QStringLiteral("a1：3 行，勾选市值 171,999.00 元，目标 200,000.00 元，剩余 28,001.00 元；数量为 0：不足一手 1 行")});

    // A tick reaches the strip with the table's own half-second refresh.
    sample::publishQuote("SH", "600000", 10.5, 10.37);
    wrapper.confirmWidget()->slotTimeout();
    QCoreApplication::processEvents();
    EXPECT_TRUE(wrapper.sizingSummary()->text().contains(QStringLiteral("勾选市值 172,038.00 元")))
        << wrapper.sizingSummary()->text().toStdString();
}

} // namespace
