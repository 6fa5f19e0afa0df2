// A basket file a user imports: the first byte chooses the format (CSV or .xlsx) and the tab
// (stock or futures), the rest is the file. Besides not crashing or hanging, what is read must
// hold together: every row has an outcome, a taken row is a known instrument with a weight and
// a volume that are not negative, and the counts and the weight sum agree with the rows.
#include "CFuzzPanelHost.h"

#include "CBasketFileReader.h"

#include "CExchangeClient.h"

#include <algorithm>
#include <cmath>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    using TC::CBasketFileReader;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    const bool futuresTab = data[0] & 2;
    const CBasketFileReader::Result result =
        CBasketFileReader::readBytes(bytes, data[0] & 1 ? QStringLiteral("f.xlsx") : QStringLiteral("f.csv"), futuresTab);
    if (!result.m_error.isEmpty() && !result.m_rows.isEmpty())
        CFuzzPanelHost::fail("a refused file still has rows", result.m_error, QString());
    int taken = 0;
    double sum = 0.0;
    for (const CBasketFileReader::Row &row : result.m_rows) {
        if (row.m_outcome != CBasketFileReader::Taken) {
            if (row.m_reason.isEmpty())
                CFuzzPanelHost::fail("a row left out without a reason", row.m_codeText, QString());
            continue;
        }
        ++taken;
        sum += row.m_data.m_weight;
        if (!TC::CExchangeClient::instance()->hasCode(row.m_data.key())
            || TC::CExchangeClient::instance()->hasFuture(row.m_data.key()) != futuresTab)
            CFuzzPanelHost::fail("a taken row that is not an instrument of the tab", row.m_codeText, row.m_data.key());
        if (!(row.m_data.m_weight >= 0.0) || !std::isfinite(row.m_data.m_weight) || row.m_data.m_volume < 0)
            CFuzzPanelHost::fail("a taken row with a negative number", row.m_codeText,
                                 QString::number(row.m_data.m_weight) + QLatin1Char('/') + QString::number(row.m_data.m_volume));
    }
    if (taken != result.m_taken || result.m_rows.size() > CBasketFileReader::MAX_ROWS
        || std::fabs(sum - result.m_weightSum) > 1e-6 * std::max(1.0, std::fabs(sum)))
        CFuzzPanelHost::fail("counts disagree with the rows", QString::number(taken), QString::number(sum));
    return 0;
}
