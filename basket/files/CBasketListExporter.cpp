#include "CBasketListExporter.h"

#include "PanelEnums.h"

#include "CBaseNormalTable.h"

#include <QFile>
#include <QLocale>
#include <QSaveFile>

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>

namespace TC {
namespace {

// A text cell that a spreadsheet program would run as a formula is written as text.
QString inertText(const QString &text)
{
    if (text.startsWith(QLatin1Char('=')) || text.startsWith(QLatin1Char('+')) || text.startsWith(QLatin1Char('@')))
        return QLatin1Char('\'') + text;
    return text;
}

QByteArray csvField(const QString &text)
{
    QByteArray field = inertText(text).toUtf8();
    if (field.contains(',') || field.contains('"') || field.contains('\n') || field.contains('\r')) {
        field.replace("\"", "\"\"");
        field = '"' + field + '"';
    }
    return field;
}

QByteArray csvLine(const QStringList &cells)
{
    QByteArray line;
    for (int i = 0; i < cells.size(); ++i) {
        if (i > 0)
            line += ',';
        line += csvField(cells[i]);
    }
    return line + "\r\n";
}

// A shown number ("1,234.50", "12.5%") as the number it is, so that the sheet can sum it.
bool shownNumber(const QString &text, double *value)
{
    QString plain = text.trimmed();
    if (plain.isEmpty() || plain.endsWith(QLatin1Char('%')))
        return false;
    plain.remove(QLatin1Char(','));
    bool ok = false;
    *value = QLocale::c().toDouble(plain, &ok);
    return ok && std::isfinite(*value);
}

} // namespace

CBasketListExporter::Sheet CBasketListExporter::fromTable(const WK::CBaseNormalTable &table,
                                                          const QVector<int> &columns, const QString &heading)
{
    Sheet sheet;
    sheet.m_heading = heading;
    QVector<int> shown;
    for (const int column : table.visualColumnOrder()) {
        if (columns.contains(column) && table.isColumnVisible(column))
            shown.push_back(column);
    }
    for (const int column : shown)
        sheet.m_titles.push_back(table.columnTitle(column));
    const int rows = table.rowCount();
    sheet.m_rows.reserve(rows);
    for (int visual = 0; visual < rows; ++visual) {
        const int rowId = table.rowID(visual);
        QStringList cells;
        cells.reserve(shown.size());
        for (const int column : shown)
            cells.push_back(table.itemText(rowId, column));
        sheet.m_rows.push_back(cells);
    }
    return sheet;
}

QString CBasketListExporter::tabName(quint64 tabWord)
{
    switch (tabWord) {
    case TOT_BUY:
        return QStringLiteral("买入");
    case TOT_SELL:
        return QStringLiteral("卖出");
    case TOT_ALL:
        return QStringLiteral("一键买卖");
    case TOT_CREDIT:
        return QStringLiteral("信用交易");
    case TOT_FUTURE:
        return QStringLiteral("期货交易");
    case TOT_ONEKEY_FUTURE:
        return QStringLiteral("一键期货");
    case TOT_HGT:
    case TOT_SGT:
        return QStringLiteral("港股通");
    default:
        return QString();
    }
}

QString CBasketListExporter::heading(const QString &basket, quint64 tabWord, const QString &time, const QString &user)
{
    return QStringLiteral("篮子：%1  页签：%2  时间：%3  用户：%4").arg(basket, tabName(tabWord), time, user);
}

QByteArray CBasketListExporter::csvBytes(const Sheet &sheet)
{
    QByteArray bytes("\xEF\xBB\xBF");
    bytes += csvLine({sheet.m_heading});
    bytes += csvLine(sheet.m_titles);
    for (const QStringList &row : sheet.m_rows)
        bytes += csvLine(row);
    return bytes;
}

bool CBasketListExporter::writeXlsx(const QString &path, const Sheet &sheet, QString *error)
{
    // Rows go out in order, so the writer may keep one row in memory instead of the whole sheet.
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    lxw_workbook *workbook = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    lxw_worksheet *worksheet = workbook ? workbook_add_worksheet(workbook, nullptr) : nullptr;
    if (!worksheet) {
        if (workbook)
            workbook_close(workbook);
        *error = QStringLiteral("无法写入 %1").arg(path);
        return false;
    }
    auto writeRow = [worksheet](lxw_row_t row, const QStringList &cells, bool numbers) {
        for (int i = 0; i < cells.size() && i < LXW_COL_MAX; ++i) {
            double value = 0.0;
            if (numbers && shownNumber(cells[i], &value))
                worksheet_write_number(worksheet, row, lxw_col_t(i), value, nullptr);
            else if (!cells[i].isEmpty())
                worksheet_write_string(worksheet, row, lxw_col_t(i), inertText(cells[i]).toUtf8().constData(), nullptr);
        }
    };
    writeRow(0, {sheet.m_heading}, false);
    writeRow(1, sheet.m_titles, false);
    const int rows = std::min(sheet.m_rows.size(), int(LXW_ROW_MAX) - 2);
    for (int i = 0; i < rows; ++i)
        writeRow(lxw_row_t(i + 2), sheet.m_rows[i], true);
    const lxw_error result = workbook_close(workbook);
    if (result != LXW_NO_ERROR) {
        *error = QStringLiteral("无法写入 %1：%2").arg(path, QString::fromUtf8(lxw_strerror(result)));
        return false;
    }
    return true;
}

bool CBasketListExporter::write(const QString &path, const Sheet &sheet, QString *error)
{
    if (path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive))
        return writeXlsx(path, sheet, error);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(csvBytes(sheet)) < 0 || !file.commit()) {
        *error = QStringLiteral("无法写入 %1：%2").arg(path, file.errorString());
        return false;
    }
    return true;
}

} // namespace TC
