#pragma once

#include "BasketExport.h"

#include "CBasketStockData.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace TC {

// Reads a basket from a file a portfolio manager keeps: CSV (comma, semicolon or tab, RFC 4180
// quoting, UTF-8 with or without BOM, or GBK/GB18030) or .xlsx (its first sheet). Columns are
// found by their header, Chinese or English, in any order: code, market, name, weight, volume,
// direction. Every data row comes back with its outcome; the caller stores only the taken ones.
//
// Limits, so that no file can hang the panel: at most MAX_ROWS data rows (a larger file is
// refused as a whole, not cut), at most MAX_FILE_BYTES on disk and MAX_XML_BYTES unpacked per
// part of an .xlsx.
class BASKETPANEL_EXPORT CBasketFileReader final
{
public:
    static constexpr int MAX_ROWS = 10000;
    static constexpr qint64 MAX_FILE_BYTES = 32 * 1024 * 1024;
    static constexpr qint64 MAX_XML_BYTES = 64 * 1024 * 1024;
    static constexpr int MAX_COLUMNS = 256;
    // How far the taken weights may be from 100%, in percentage points.
    static constexpr double WEIGHT_TOLERANCE = 0.5;

    enum Outcome {
        Taken,
        NoCode,
        UnknownCode,
        Duplicate,
        BadNumber,
        NegativeWeight,
        WrongTab, // a futures contract on a stock tab, or a stock on a futures tab
    };

    struct Row {
        int m_line = 0;          // line of the file (1 = the header's line for CSV, the sheet row for .xlsx)
        QString m_codeText;      // the code as written
        Outcome m_outcome = Taken;
        QString m_reason;        // why not taken; empty when taken
        CBasketStockData m_data; // market, code, name, weight in percent, volume, direction
    };

    struct Result {
        QString m_error;         // why nothing could be read; empty when rows were read
        QVector<Row> m_rows;
        bool m_hasWeights = false;
        bool m_percentWeights = false; // weights were read as percentages, not fractions
        double m_weightSum = 0.0;      // of the taken rows, in percent
        int m_taken = 0;

        // Whether the taken weights may be stored: no weights given, or summing to 100%.
        bool weightsAddUp() const;
        // The taken rows, ready for a stored basket.
        QList<CBasketStockData> takenStocks() const;
    };

    // futuresTab: the basket is for a futures tab (futures contracts only), else for a stock tab.
    static Result readFile(const QString &path, bool futuresTab);
    // fileName only tells the format (.xlsx by its suffix or its zip signature, else CSV).
    static Result readBytes(const QByteArray &bytes, const QString &fileName, bool futuresTab);

    // The cells of a CSV or of an .xlsx's first sheet, rows of text; stops with an error past
    // maxRows rows. Empty lines are dropped.
    static QVector<QStringList> csvCells(const QByteArray &bytes, int maxRows, QString *error);
    static QVector<QStringList> xlsxCells(const QByteArray &bytes, int maxRows, QString *error);
    // The text of bytes: UTF-8 when they are (a BOM is dropped), else GB18030, a superset of GBK.
    static QString decodeText(const QByteArray &bytes);
    // Splits a code as written ("600000.SH", "SH600000", "sh600000") into market and code; the
    // market is empty when the text names none.
    static void splitCode(const QString &text, QString *market, QString *code);
    // Fewer than six digits padded to six ("1" is "000001": a spreadsheet drops leading zeros),
    // empty for any other code. Tried when the code as written is unknown, so that a connect
    // code of five digits stays as it is.
    static QString paddedCode(const QString &code);

    static QString outcomeText(Outcome outcome);

private:
    static Result readCells(const QVector<QStringList> &cells, bool futuresTab);
};

} // namespace TC
