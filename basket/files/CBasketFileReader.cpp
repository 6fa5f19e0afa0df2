#include "CBasketFileReader.h"

#include "CExchangeClient.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QSet>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <csv.h>
#include <zip.h>

#include <cmath>
#include <memory>

namespace TC {
namespace {

// The lines read before the data rows are counted: a few title lines, the header, the rows.
const int kMaxLines = CBasketFileReader::MAX_ROWS + 11;

enum Column { ColCode, ColMarket, ColName, ColWeight, ColVolume, ColDirection, ColumnCount };

// A header as the user wrote it, reduced so that "权重(%)", "Weight %" and "weight" meet.
QString headerKey(const QString &text)
{
    QString key = text.trimmed().toLower();
    key.remove(QLatin1Char(' '));
    key.remove(QLatin1Char('_'));
    for (const char *mark : {"(%)", "（%）", "%"})
        key.remove(QString::fromUtf8(mark));
    return key;
}

int columnOf(const QString &header)
{
    static const QHash<QString, int> known = [] {
        QHash<QString, int> map;
        const struct {
            int column;
            const char *names;
        } table[] = {
            {ColCode, "代码|证券代码|股票代码|合约代码|基金代码|code|symbol|ticker|stockcode|seccode|instrument"},
            {ColMarket, "市场|交易所|交易市场|market|exchange"},
            {ColName, "名称|证券名称|股票名称|合约名称|简称|证券简称|name|stockname|secname"},
            {ColWeight, "权重|比例|占比|持仓权重|目标权重|weight|weights|targetweight|pct|percent"},
            {ColVolume, "数量|股数|手数|委托数量|持仓数量|volume|quantity|qty|shares|lots"},
            {ColDirection, "方向|买卖方向|买卖|交易方向|direction|side|bs"},
        };
        for (const auto &row : table) {
            for (const QString &name : QString::fromUtf8(row.names).split(QLatin1Char('|')))
                map.insert(name, row.column);
        }
        return map;
    }();
    return known.value(headerKey(header), -1);
}

QString normalMarket(const QString &text)
{
    const QString market = text.trimmed().toUpper();
    if (market == QLatin1String("SSE") || market == QLatin1String("XSHG") || market == QStringLiteral("上海")
        || market == QStringLiteral("上交所") || market == QStringLiteral("沪"))
        return QStringLiteral("SH");
    if (market == QLatin1String("SZSE") || market == QLatin1String("XSHE") || market == QStringLiteral("深圳")
        || market == QStringLiteral("深交所") || market == QStringLiteral("深"))
        return QStringLiteral("SZ");
    if (market == QLatin1String("BSE") || market == QStringLiteral("北交所"))
        return QStringLiteral("BJ");
    return market;
}

// A number as a spreadsheet writes it; "5%" counts as 5 with *percent set.
bool readNumber(QString text, double *value, bool *percent)
{
    text = text.trimmed();
    text.remove(QLatin1Char(' '));
    *percent = text.endsWith(QLatin1Char('%')) || text.endsWith(QStringLiteral("％"));
    if (*percent)
        text.chop(1);
    bool ok = false;
    *value = QLocale::c().toDouble(text, &ok);
    return ok && std::isfinite(*value);
}

// 0 unknown, 1 buy, 2 sell.
int readDirection(const QString &text)
{
    const QString word = text.trimmed().toLower();
    if (word.isEmpty() || word == QStringLiteral("买") || word == QStringLiteral("买入") || word == QLatin1String("b")
        || word == QLatin1String("buy") || word == QLatin1String("48") || word == QStringLiteral("多"))
        return 1;
    if (word == QStringLiteral("卖") || word == QStringLiteral("卖出") || word == QLatin1String("s")
        || word == QLatin1String("sell") || word == QLatin1String("49") || word == QStringLiteral("空"))
        return 2;
    return 0;
}

// --- CSV, through libcsv ---

struct CsvState {
    QVector<QStringList> rows;
    QStringList row;
    int maxRows = 0;
    bool full = false;
};

void csvField(void *field, size_t length, void *data)
{
    auto *state = static_cast<CsvState *>(data);
    if (state->row.size() < CBasketFileReader::MAX_COLUMNS)
        state->row.push_back(QString::fromUtf8(static_cast<const char *>(field), int(length)));
}

void csvRowEnd(int, void *data)
{
    auto *state = static_cast<CsvState *>(data);
    QStringList row;
    row.swap(state->row);
    bool blank = true;
    for (const QString &cell : row)
        blank = blank && cell.trimmed().isEmpty();
    if (blank)
        return;
    if (state->rows.size() >= state->maxRows) {
        state->full = true;
        return;
    }
    state->rows.push_back(row);
}

// The delimiter of the first line: the most frequent of comma, semicolon and tab outside quotes.
unsigned char guessDelimiter(const QByteArray &text)
{
    int counts[3] = {0, 0, 0};
    const char delimiters[3] = {',', ';', '\t'};
    bool quoted = false;
    for (const char c : text) {
        if (c == '"')
            quoted = !quoted;
        else if (!quoted && (c == '\n' || c == '\r'))
            break;
        for (int i = 0; i < 3 && !quoted; ++i)
            counts[i] += c == delimiters[i];
    }
    int best = 0;
    for (int i = 1; i < 3; ++i) {
        if (counts[i] > counts[best])
            best = i;
    }
    return static_cast<unsigned char>(delimiters[best]);
}

// --- .xlsx, through libzip and QXmlStreamReader ---

using ZipArchive = std::unique_ptr<zip_t, void (*)(zip_t *)>;

void discardZip(zip_t *archive)
{
    zip_discard(archive);
}

// One part of the archive, at most MAX_XML_BYTES of it; false when it is missing, damaged or too big.
bool readPart(zip_t *archive, const QString &name, QByteArray *out)
{
    zip_file_t *file = zip_fopen(archive, name.toUtf8().constData(), 0);
    if (!file)
        return false;
    out->clear();
    char buffer[65536];
    bool ok = true;
    for (;;) {
        const zip_int64_t got = zip_fread(file, buffer, sizeof buffer);
        if (got < 0) {
            ok = false;
            break;
        }
        if (got == 0)
            break;
        if (out->size() + got > CBasketFileReader::MAX_XML_BYTES) {
            ok = false;
            break;
        }
        out->append(buffer, int(got));
    }
    zip_fclose(file);
    return ok;
}

// The part of the workbook's first sheet, "xl/worksheets/sheet1.xml" when the workbook says none.
QString firstSheetPart(zip_t *archive)
{
    QString relationId;
    QByteArray xml;
    if (readPart(archive, QStringLiteral("xl/workbook.xml"), &xml)) {
        QXmlStreamReader reader(xml);
        while (!reader.atEnd() && relationId.isEmpty()) {
            if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("sheet")) {
                for (const QXmlStreamAttribute &attribute : reader.attributes()) {
                    if (attribute.name() == QLatin1String("id"))
                        relationId = attribute.value().toString();
                }
            }
        }
    }
    if (!relationId.isEmpty() && readPart(archive, QStringLiteral("xl/_rels/workbook.xml.rels"), &xml)) {
        QXmlStreamReader reader(xml);
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != QLatin1String("Relationship"))
                continue;
            if (reader.attributes().value(QLatin1String("Id")) != relationId)
                continue;
            QString target = reader.attributes().value(QLatin1String("Target")).toString();
            if (target.startsWith(QLatin1Char('/')))
                return target.mid(1);
            return QStringLiteral("xl/") + target;
        }
    }
    return QStringLiteral("xl/worksheets/sheet1.xml");
}

// The text of the current element with its <t> pieces joined, phonetic runs left out.
QString readStringItem(QXmlStreamReader &reader)
{
    QString text;
    const QString end = reader.name().toString();
    int phonetic = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (reader.name() == QLatin1String("rPh"))
                ++phonetic;
            else if (reader.name() == QLatin1String("t") && phonetic == 0)
                text += reader.readElementText(QXmlStreamReader::SkipChildElements);
        } else if (token == QXmlStreamReader::EndElement) {
            if (reader.name() == QLatin1String("rPh"))
                --phonetic;
            else if (reader.name() == end)
                break;
        }
    }
    return text;
}

QStringList sharedStrings(zip_t *archive)
{
    QStringList strings;
    QByteArray xml;
    if (!readPart(archive, QStringLiteral("xl/sharedStrings.xml"), &xml))
        return strings;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("si"))
            strings.push_back(readStringItem(reader));
    }
    return strings;
}

// The column index of a cell reference ("C12" is 2), -1 when it has none.
int referenceColumn(const QStringRef &reference)
{
    int column = 0;
    int letters = 0;
    for (const QChar c : reference) {
        if (c < QLatin1Char('A') || c > QLatin1Char('Z'))
            break;
        column = column * 26 + (c.unicode() - 'A' + 1);
        if (++letters > 3)
            return -1;
    }
    return letters == 0 ? -1 : column - 1;
}

} // namespace

bool CBasketFileReader::Result::weightsAddUp() const
{
    return !m_hasWeights || std::fabs(m_weightSum - 100.0) <= WEIGHT_TOLERANCE;
}

QList<CBasketStockData> CBasketFileReader::Result::takenStocks() const
{
    QList<CBasketStockData> stocks;
    for (const Row &row : m_rows) {
        if (row.m_outcome == Taken)
            stocks.push_back(row.m_data);
    }
    return stocks;
}

QString CBasketFileReader::decodeText(const QByteArray &bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(bytes.constData() + 3, bytes.size() - 3);
    QTextCodec::ConverterState state;
    const QString utf8 = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0)
        return utf8;
    if (QTextCodec *gb = QTextCodec::codecForName("GB18030"))
        return gb->toUnicode(bytes);
    return utf8;
}

void CBasketFileReader::splitCode(const QString &text, QString *market, QString *code)
{
    QString word = text.trimmed().toUpper();
    market->clear();
    const int dot = word.lastIndexOf(QLatin1Char('.'));
    if (dot > 0 && dot < word.size() - 1 && !word.at(dot + 1).isDigit()) {
        *market = normalMarket(word.mid(dot + 1));
        word = word.left(dot);
    } else if (word.size() > 2 && word.at(0).isLetter() && word.at(1).isLetter() && word.at(2).isDigit()) {
        const QString prefix = word.left(2);
        if (prefix == QLatin1String("SH") || prefix == QLatin1String("SZ") || prefix == QLatin1String("BJ")) {
            *market = prefix;
            word = word.mid(2);
        }
    }
    *code = word;
}

QString CBasketFileReader::paddedCode(const QString &code)
{
    bool digits = !code.isEmpty() && code.size() < 6;
    for (const QChar c : code)
        digits = digits && c.isDigit();
    return digits ? QString(6 - code.size(), QLatin1Char('0')) + code : QString();
}

QString CBasketFileReader::outcomeText(Outcome outcome)
{
    switch (outcome) {
    case Taken:
        return QStringLiteral("导入");
    case NoCode:
        return QStringLiteral("缺少代码");
    case UnknownCode:
        return QStringLiteral("未知代码");
    case Duplicate:
        return QStringLiteral("重复");
    case BadNumber:
        return QStringLiteral("数字有误");
    case NegativeWeight:
        return QStringLiteral("权重为负");
    case WrongTab:
        return QStringLiteral("与页签不符");
    }
    return QString();
}

QVector<QStringList> CBasketFileReader::csvCells(const QByteArray &bytes, int maxRows, QString *error)
{
    // Delimiters and quotes are ASCII, which neither encoding uses inside a character, but the
    // cells must be UTF-8 for the parser's callbacks: decode once, then parse.
    const QByteArray text = decodeText(bytes).toUtf8();
    CsvState state;
    state.maxRows = maxRows;
    csv_parser parser;
    if (csv_init(&parser, 0) != 0) {
        *error = QStringLiteral("无法读取文件");
        return {};
    }
    csv_set_delim(&parser, guessDelimiter(text));
    const int chunk = 1 << 16;
    for (int at = 0; at < text.size() && !state.full; at += chunk) {
        const size_t length = size_t(qMin(chunk, text.size() - at));
        if (csv_parse(&parser, text.constData() + at, length, csvField, csvRowEnd, &state) != length)
            break;
    }
    if (!state.full)
        csv_fini(&parser, csvField, csvRowEnd, &state);
    csv_free(&parser);
    if (state.full)
        *error = QStringLiteral("文件超过 %1 行，未导入").arg(MAX_ROWS);
    return state.full ? QVector<QStringList>() : state.rows;
}

QVector<QStringList> CBasketFileReader::xlsxCells(const QByteArray &bytes, int maxRows, QString *error)
{
    zip_error_t zipError;
    zip_error_init(&zipError);
    zip_source_t *source = zip_source_buffer_create(bytes.constData(), zip_uint64_t(bytes.size()), 0, &zipError);
    zip_t *opened = source ? zip_open_from_source(source, ZIP_RDONLY, &zipError) : nullptr;
    zip_error_fini(&zipError);
    if (!opened) {
        if (source)
            zip_source_free(source);
        *error = QStringLiteral("不是有效的 .xlsx 文件");
        return {};
    }
    ZipArchive archive(opened, discardZip);

    QByteArray xml;
    if (!readPart(archive.get(), firstSheetPart(archive.get()), &xml)) {
        *error = QStringLiteral(".xlsx 文件没有可读的工作表");
        return {};
    }
    const QStringList strings = sharedStrings(archive.get());

    QVector<QStringList> rows;
    QXmlStreamReader reader(xml);
    QStringList row;
    int column = -1;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && reader.name() == QLatin1String("row")) {
            row.clear();
            column = -1;
        } else if (token == QXmlStreamReader::EndElement && reader.name() == QLatin1String("row")) {
            bool blank = true;
            for (const QString &cell : row)
                blank = blank && cell.trimmed().isEmpty();
            if (blank)
                continue;
            if (rows.size() >= maxRows) {
                *error = QStringLiteral("文件超过 %1 行，未导入").arg(MAX_ROWS);
                return {};
            }
            rows.push_back(row);
        } else if (token == QXmlStreamReader::StartElement && reader.name() == QLatin1String("c")) {
            const QXmlStreamAttributes attributes = reader.attributes();
            const int at = referenceColumn(attributes.value(QLatin1String("r")));
            column = at >= 0 ? at : column + 1;
            const QString type = attributes.value(QLatin1String("t")).toString();
            QString value;
            while (!reader.atEnd()) {
                const QXmlStreamReader::TokenType inner = reader.readNext();
                if (inner == QXmlStreamReader::EndElement && reader.name() == QLatin1String("c"))
                    break;
                if (inner != QXmlStreamReader::StartElement)
                    continue;
                if (reader.name() == QLatin1String("v"))
                    value = reader.readElementText(QXmlStreamReader::SkipChildElements);
                else if (reader.name() == QLatin1String("is"))
                    value = readStringItem(reader);
            }
            if (type == QLatin1String("s")) {
                bool ok = false;
                const int index = value.toInt(&ok);
                value = ok && index >= 0 && index < strings.size() ? strings.at(index) : QString();
            }
            if (column < MAX_COLUMNS) {
                while (row.size() <= column)
                    row.push_back(QString());
                row[column] = value;
            }
        }
    }
    if (reader.hasError() && rows.isEmpty()) {
        *error = QStringLiteral(".xlsx 工作表已损坏");
        return {};
    }
    return rows;
}

CBasketFileReader::Result CBasketFileReader::readFile(const QString &path, bool futuresTab)
{
    Result result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.m_error = QStringLiteral("无法打开文件：%1").arg(file.errorString());
        return result;
    }
    if (file.size() > MAX_FILE_BYTES) {
        result.m_error = QStringLiteral("文件大于 %1 MB，未导入").arg(MAX_FILE_BYTES >> 20);
        return result;
    }
    return readBytes(file.read(MAX_FILE_BYTES + 1), QFileInfo(path).fileName(), futuresTab);
}

CBasketFileReader::Result CBasketFileReader::readBytes(const QByteArray &bytes, const QString &fileName,
                                                       bool futuresTab)
{
    Result result;
    if (bytes.size() > MAX_FILE_BYTES) {
        result.m_error = QStringLiteral("文件大于 %1 MB，未导入").arg(MAX_FILE_BYTES >> 20);
        return result;
    }
    if (bytes.trimmed().isEmpty()) {
        result.m_error = QStringLiteral("文件是空的");
        return result;
    }
    const bool xlsx = fileName.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive) || bytes.startsWith("PK\x03\x04");
    if (!xlsx && bytes.left(4096).contains('\0')) {
        result.m_error = QStringLiteral("不是文本或 .xlsx 文件");
        return result;
    }
    QString error;
    const QVector<QStringList> cells =
        xlsx ? xlsxCells(bytes, kMaxLines, &error) : csvCells(bytes, kMaxLines, &error);
    if (!error.isEmpty()) {
        result.m_error = error;
        return result;
    }
    return readCells(cells, futuresTab);
}

namespace {

using Row = CBasketFileReader::Row;

// Where each column stands: the header is the first of the top lines that names a code column
// (a title line above it, "组合：红利精选", is common in exported sheets).
struct Header
{
    int line = -1;
    int columns[ColumnCount];
    bool percent = false; // the weight column's title says percent

    QString cell(const QStringList &cells, int column) const
    {
        return columns[column] >= 0 && columns[column] < cells.size() ? cells[columns[column]].trimmed() : QString();
    }
};

Header findHeader(const QVector<QStringList> &cells)
{
    Header header;
    for (int line = 0; line < cells.size() && line < 10 && header.line < 0; ++line) {
        std::fill(std::begin(header.columns), std::end(header.columns), -1);
        for (int i = 0; i < cells[line].size(); ++i) {
            const int column = columnOf(cells[line][i]);
            if (column >= 0 && header.columns[column] < 0) {
                header.columns[column] = i;
                if (column == ColWeight)
                    header.percent = cells[line][i].contains(QLatin1Char('%')) || cells[line][i].contains(QStringLiteral("％"));
            }
        }
        if (header.columns[ColCode] >= 0)
            header.line = line;
    }
    return header;
}

void refuse(Row &row, CBasketFileReader::Outcome outcome, const QString &reason)
{
    row.m_outcome = outcome;
    row.m_reason = reason;
}

// Finds the line's instrument, on the side the tab trades; refuses the row when there is none.
bool identify(Row &row, const QStringList &cells, const Header &header, bool futuresTab)
{
    const CExchangeClient *instruments = CExchangeClient::instance();
    if (row.m_codeText.isEmpty()) {
        refuse(row, CBasketFileReader::NoCode, CBasketFileReader::outcomeText(CBasketFileReader::NoCode));
        return false;
    }
    QString market;
    QString code;
    CBasketFileReader::splitCode(row.m_codeText, &market, &code);
    if (market.isEmpty())
        market = normalMarket(header.cell(cells, ColMarket));
    auto lookUp = [&](const QString &candidate) {
        if (!market.isEmpty())
            return instruments->getCodeInfo(candidate + QLatin1Char('.') + market);
        if (futuresTab)
            return instruments->getCodeInfo(candidate);
        const std::string stockMarket = instruments->getMarketByStockCode(candidate.toStdString(), std::string());
        return stockMarket.empty() ? instruments->getCodeInfo(candidate)
                                   : instruments->getCodeInfo(candidate + QLatin1Char('.') + QString::fromStdString(stockMarket));
    };
    // The code as written first: connect codes have five digits of their own.
    boost::shared_ptr<ttservice::CInstrumentDetail> detail = lookUp(code);
    if (!detail && !CBasketFileReader::paddedCode(code).isEmpty())
        detail = lookUp(CBasketFileReader::paddedCode(code));
    if (!detail) {
        refuse(row, CBasketFileReader::UnknownCode, QStringLiteral("未知代码 %1").arg(row.m_codeText));
        return false;
    }
    row.m_data.m_market = QString::fromStdString(detail->m_market);
    row.m_data.m_stockCode = QString::fromStdString(detail->m_stockCode);
    if (row.m_data.m_stockName.isEmpty())
        row.m_data.m_stockName = QString::fromStdString(detail->m_stockName);
    const bool future = instruments->hasFuture(row.m_data.key());
    if (future != futuresTab) {
        refuse(row, CBasketFileReader::WrongTab,
               future ? QStringLiteral("期货合约不能放进股票篮子") : QStringLiteral("期货篮子只放期货合约"));
        return false;
    }
    return true;
}

// Direction, weight and volume of a known line; a line seen before with the same direction is
// refused. Returns whether the weight was written as a percent.
bool readAmounts(Row &row, const QStringList &cells, const Header &header, QSet<QString> &seen, double &plainSum)
{
    const int direction = readDirection(header.cell(cells, ColDirection));
    const QString weightText = header.cell(cells, ColWeight);
    const QString volumeText = header.cell(cells, ColVolume);
    double weight = 0.0;
    double volume = 0.0;
    bool percent = false;
    bool volumePercent = false;
    if (direction == 0) {
        refuse(row, CBasketFileReader::BadNumber, QStringLiteral("方向有误：%1").arg(header.cell(cells, ColDirection)));
    } else if (!weightText.isEmpty() && !readNumber(weightText, &weight, &percent)) {
        refuse(row, CBasketFileReader::BadNumber, QStringLiteral("权重有误：%1").arg(weightText));
    } else if (weight < 0.0) {
        refuse(row, CBasketFileReader::NegativeWeight, CBasketFileReader::outcomeText(CBasketFileReader::NegativeWeight));
    } else if (!volumeText.isEmpty()
               && (!readNumber(volumeText, &volume, &volumePercent) || volumePercent || volume < 0.0 || volume > 1e12
                   || volume != std::floor(volume))) {
        refuse(row, CBasketFileReader::BadNumber, QStringLiteral("数量有误：%1").arg(volumeText));
    } else if (weightText.isEmpty() && volumeText.isEmpty()) {
        refuse(row, CBasketFileReader::BadNumber, QStringLiteral("缺少权重或数量"));
    } else {
        row.m_data.m_operationType = direction == 2 ? ttservice::OT_SELL : ttservice::OT_BUY;
        row.m_data.m_entrustBs = direction == 2 ? 49 : 48;
        const QString key = row.m_data.key() + QLatin1Char('/') + QString::number(direction);
        if (seen.contains(key)) {
            refuse(row, CBasketFileReader::Duplicate, QStringLiteral("重复：%1 已在前面出现").arg(row.m_data.key()));
        } else {
            seen.insert(key);
            row.m_data.m_weight = weight;
            row.m_data.m_volume = static_cast<int64_t>(volume);
            if (!percent && !header.percent)
                plainSum += weight;
        }
    }
    return percent;
}

// Weights in percent of the whole list, however the file wrote them.
void settleWeights(CBasketFileReader::Result &result, const QVector<bool> &weightInPercent, double plainSum)
{
    // A weight column left empty on every line (a list of volumes) is no weight column.
    double anyWeight = 0.0;
    for (const Row &row : result.m_rows)
        anyWeight += row.m_outcome == CBasketFileReader::Taken ? row.m_data.m_weight : 0.0;
    result.m_hasWeights = result.m_hasWeights && anyWeight > 0.0;
    // Plain numbers are fractions when all of them together come to about one, else percents.
    const bool plainIsFraction = plainSum <= 1.0 + CBasketFileReader::WEIGHT_TOLERANCE / 100.0 && plainSum > 0.0;
    result.m_percentWeights = !plainIsFraction;
    int taken = 0;
    for (const Row &row : result.m_rows)
        taken += row.m_outcome == CBasketFileReader::Taken;
    for (int i = 0; i < result.m_rows.size(); ++i) {
        Row &row = result.m_rows[i];
        if (row.m_outcome != CBasketFileReader::Taken)
            continue;
        if (!result.m_hasWeights)
            row.m_data.m_weight = 100.0 / taken; // volumes only: every line weighs the same
        else if (!weightInPercent[i] && plainIsFraction)
            row.m_data.m_weight *= 100.0;
        result.m_weightSum += row.m_data.m_weight;
        ++result.m_taken;
    }
}

} // namespace

CBasketFileReader::Result CBasketFileReader::readCells(const QVector<QStringList> &cells, bool futuresTab)
{
    Result result;
    const Header header = findHeader(cells);
    if (header.line < 0) {
        result.m_error = QStringLiteral("找不到代码列：第一行应有“代码”或“code”等列名");
        return result;
    }
    if (cells.size() - header.line - 1 > MAX_ROWS) {
        result.m_error = QStringLiteral("文件超过 %1 行，未导入").arg(MAX_ROWS);
        return result;
    }
    result.m_hasWeights = header.columns[ColWeight] >= 0;

    QSet<QString> seen;
    QVector<bool> weightInPercent;
    double plainSum = 0.0;
    for (int line = header.line + 1; line < cells.size(); ++line) {
        const QStringList &cellsOfLine = cells[line];
        Row row;
        row.m_line = line + 1;
        row.m_codeText = header.cell(cellsOfLine, ColCode);
        row.m_data.m_stockName = header.cell(cellsOfLine, ColName);
        const bool known = identify(row, cellsOfLine, header, futuresTab);
        const bool percent = known && readAmounts(row, cellsOfLine, header, seen, plainSum);
        result.m_rows.push_back(row);
        weightInPercent.push_back(known && (percent || header.percent));
    }
    settleWeights(result, weightInPercent, plainSum);
    return result;
}

} // namespace TC
