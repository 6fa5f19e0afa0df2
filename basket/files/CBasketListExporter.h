#pragma once

#include "BasketExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace WK {
class CBaseNormalTable;
} // namespace WK

namespace TC {

// Writes an order list as the user sees it to a file a desk keeps: CSV in UTF-8 with a BOM (so
// that spreadsheet programs take it as UTF-8) or .xlsx. The first line says what the list is
// (basket, tab, time, user), the second holds the column titles.
class BASKETPANEL_EXPORT CBasketListExporter final
{
public:
    struct Sheet {
        QString m_heading;
        QStringList m_titles;
        QVector<QStringList> m_rows;
    };

    // The rows in view of table, in screen order, with these columns (by column number) in
    // their on-screen order; columns hidden by the user are left out, as on screen.
    static Sheet fromTable(const WK::CBaseNormalTable &table, const QVector<int> &columns, const QString &heading);
    // "篮子：<basket>  页签：<tab>  时间：<time>  用户：<user>".
    static QString heading(const QString &basket, quint64 tabWord, const QString &time, const QString &user);
    static QString tabName(quint64 tabWord);

    // Writes sheet to path, .xlsx by the suffix, else CSV; false with the reason in error.
    static bool write(const QString &path, const Sheet &sheet, QString *error);
    static QByteArray csvBytes(const Sheet &sheet);
    static bool writeXlsx(const QString &path, const Sheet &sheet, QString *error);
};

} // namespace TC
