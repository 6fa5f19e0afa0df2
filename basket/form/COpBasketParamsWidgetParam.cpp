// The form's text: what the client keeps of the form between two runs, and the form's memory of
// each tab. Two formats are read: the JSON object of short keys that param() writes, and the
// ";" list of older clients, which is upgraded the next time the panel is saved.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"

#include "CComboBox.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "ComposeModules.h"

#include "Bson.h"

#include <QComboBox>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace TC {
namespace {

constexpr quint64 kConnectBits = TOT_HGT | TOT_SGT;
// The tabs whose form state is kept per tab; the futures tabs keep none.
constexpr quint64 kPerTabBits = 0x182e00;
constexpr int kSystemBasketFlag = 64;
// Far inside what a 64-bit integer holds, so that a damaged number can be cast safely.
constexpr double kNumberLimit = 1.0e15;

// A number of a saved text: 0 for what does not parse or is no finite number.
double savedDouble(const QString &text, double unreadable = 0.0)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return unreadable;
    return std::clamp(value, -kNumberLimit, kNumberLimit);
}

int savedInt(const QString &text)
{
    return text.trimmed().toInt();
}

// The tab words of the saved texts are 32-bit numbers; a negative one stands for the same bits
// in a 64-bit word.
quint64 savedWord(const QString &text)
{
    return static_cast<quint64>(static_cast<qint64>(savedInt(text)));
}

// The tab of a saved text: a word that is not exactly one tab (damaged, 0, or -1 with every bit
// set) opens the buy tab, as the panel would otherwise stand on a tab that does not exist.
quint64 savedTab(const QString &text)
{
    const quint64 word = savedWord(text);
    const bool oneTab = word != 0 && (word & ~TOT_ALL_TABS_MASK) == 0 && (word & (word - 1)) == 0;
    return oneTab ? word : TOT_BUY;
}

// Fifteen significant digits: a money of 1,234,567.89 comes back as typed, not as 1,234,570.
QString cellText(const WK::CParameterCell *cell)
{
    return QString::number(cell->toDouble(), 'g', 15);
}

// Every value of the object is a string; a field of another kind, which no client writes, is
// read as its value's text.
QString fieldText(const bson::BSONObj &obj, const char *key)
{
    const bson::BSONElement e = obj.getField(key);
    if (e.eoo())
        return QString();
    if (e.type() == bson::String)
        return QString::fromStdString(e.str());
    return QString::fromStdString(e.toString(false));
}

// The basket name in the per-tab text, whose fields are split at "*": a "*" of the name is
// written as "%2A" and a "%" as "%25". A name of an older text has neither escape, as long as it
// holds no "%2A" or "%25" of its own.
QString escapedName(QString name)
{
    return name.replace(QLatin1Char('%'), QLatin1String("%25")).replace(QLatin1Char('*'), QLatin1String("%2A"));
}

QString unescapedName(QString name)
{
    // "%2A" first: each of its matches begins at an escape's "%", never inside a "%25".
    return name.replace(QLatin1String("%2A"), QLatin1String("*")).replace(QLatin1String("%25"), QLatin1String("%"));
}

// The panel's text is cut at "|" by the client's frame and at "/" by the panel before this part
// is parsed, and JSON leaves both as they are in a string; a basket name may hold either.
// Written as JSON escapes, they are read back as the same characters.
QString withoutCutMarks(QString json)
{
    return json.replace(QLatin1Char('/'), QLatin1String("\\u002f")).replace(QLatin1Char('|'), QLatin1String("\\u007c"));
}

} // namespace

std::string COpBasketParamsWidget::getBsonName(quint64 word) const
{
    // Each entry under the name of its own tab: named after the tab current while saving, as
    // older clients did, the entries of every other tab shared one name and all but one were
    // lost when the text was read back. Their texts are still read as before.
    if (word & TOT_ALL)
        return "COM_ALL";
    if (word & TOT_CREDIT)
        return "COM_CRD_ALL";
    if (word & TOT_SGT)
        return "COM_SGT_ALL";
    if (word & TOT_HGT)
        return "COM_HGT_ALL";
    if (word & TOT_SELL)
        return "COM_SELL";
    return "COM_BUY";
}

quint64 COpBasketParamsWidget::getOpTypeFromQString(const QString &name)
{
    if (name == QLatin1String("COM_ALL"))
        return TOT_ALL;
    if (name == QLatin1String("COM_CRD_ALL"))
        return TOT_CREDIT;
    if (name == QLatin1String("COM_SGT_ALL"))
        return TOT_SGT;
    if (name == QLatin1String("COM_HGT_ALL"))
        return TOT_HGT;
    if (name == QLatin1String("COM_SELL"))
        return TOT_SELL;
    return TOT_BUY;
}

QString COpBasketParamsWidget::param() const
{
    bson::BSONObjBuilder builder;
    auto add = [&builder](const char *key, const QString &value) { builder.append(key, value.toStdString()); };

    if (m_tabGroup)
        add("BS", QString::number(m_tabGroup->checkedId()));
    if (m_stockParams)
        add("SP", m_stockParams->param());
    if (m_hedgeWidget)
        add("HP", m_hedgeWidget->param());
    if (m_accountsWidget)
        add("AW", m_accountsWidget->param());
    if (m_basketsCombo)
        add("BBox", m_basketsCombo->currentText());
    if (m_buySellWidget && m_buySellWidget->getBuyParam())
        add("BBP", m_buySellWidget->getBuyParam()->param());
    if (m_buySellWidget && m_buySellWidget->getSellParam())
        add("BSP", m_buySellWidget->getSellParam()->param());
    if (m_hedgeWidget)
        add("BHP", m_hedgeWidget->isAutoHedgeCheck() ? QStringLiteral("1") : QStringLiteral("0"));
    if (m_volumnCombobox)
        add("VTB", QString::number(getCurrentVolumnType()));
    if (m_copiesCell)
        add("CC", cellText(m_copiesCell));
    if (m_moneyCell)
        add("MC", cellText(m_moneyCell));
    if (m_crdWidget)
        add("BCPW", m_crdWidget->param());
    if (m_ftrWidget)
        add("BFPW", m_ftrWidget->param());
    if (m_buttonsBar)
        add("BB", m_buttonsBar->param());
    if (m_ftrOneKeyWidget)
        add("BFOKOPW", m_ftrOneKeyWidget->param());
    if (m_ggtWidget && m_ggtWidget->getBuyParam())
        add("BGBP", m_ggtWidget->getBuyParam()->param());
    if (m_ggtWidget && m_ggtWidget->getSellParam())
        add("BGSP", m_ggtWidget->getSellParam()->param());
    add("OGT", QString::number(static_cast<double>(m_ggtOpType), 'f', 0));

    saveHedgeParam();
    if (!m_hedgeParams.isEmpty()) {
        bson::BSONObjBuilder inner;
        for (auto it = m_hedgeParams.cbegin(); it != m_hedgeParams.cend(); ++it)
            inner.append(getBsonName(it.key()), it.value().toStdString());
        add("bsonParam", QString::fromStdString(inner.obj().jsonString(bson::Strict, 0)));
    }
    if (m_contractCell)
        add("CTCN", QString::number(m_contractCell->toInt()));
    // The percentage of the net-value and available-money modes has no place in the per-tab
    // text; without this key a restart sized at 100 % whatever percentage the trader had typed.
    if (m_ratioCell)
        add("RC", cellText(m_ratioCell));

    return withoutCutMarks(QString::fromStdString(builder.obj().jsonString(bson::Strict, 0)));
}

void COpBasketParamsWidget::setParam(const QString &text)
{
    if (text.isEmpty()) {
        m_tradeOpType = TOT_BUY;
        setCurrentOperationType(TOT_BUY);
        deliverEvent(1072, 0, static_cast<int>(TOT_BUY), QString(), nullptr);
    }

    // Whether the text is JSON is the only test of its format: anything else is a text of an
    // older client. The parser tells by throwing; the form listens for it here and nowhere else.
    try {
        const bson::BSONObj obj = bson::fromjson(text.toStdString());
        readSavedTab(obj);
        readSavedBlocks(obj);
        readSavedSizing(obj);
        readSavedTabBlocks(obj);
        readSavedTabEntries(obj);
        if (obj.hasField("CTCN") && m_contractCell)
            m_contractCell->setValue(savedInt(fieldText(obj, "CTCN")));
        if (obj.hasField("RC") && m_ratioCell)
            m_ratioCell->setValue(savedDouble(fieldText(obj, "RC")));

        if ((m_tradeOpType == TOT_HGT || m_tradeOpType == TOT_SGT) && !TC::hasComposeGgtType())
            m_tradeOpType = TOT_BUY;

        finishRestore();
    } catch (const bson::DBException &) {
        setOldParam(text);
    }
}

void COpBasketParamsWidget::readSavedTab(const bson::BSONObj &obj)
{
    // Both connect kinds share one tab button, so the tab's word does not tell them apart; the
    // kind on view is "OGT". It decides the tab before anything that follows the tab (the
    // basket's picker, the accounts) is read, or the panel reopens on the other kind.
    if (obj.hasField("OGT")) {
        const quint64 word = savedWord(fieldText(obj, "OGT"));
        if (word & kConnectBits)
            m_ggtOpType = getGgtTradeOpType(word);
    }
    m_tradeOpType = savedTab(fieldText(obj, "BS"));
    if (m_tradeOpType & kConnectBits)
        m_tradeOpType = getGgtTradeOpType(m_tradeOpType == TOT_HGT ? m_ggtOpType : m_tradeOpType);

    if (m_basketsCombo) {
        if (isShowSystemBasket(m_tradeOpType))
            m_basketsCombo->setBatchOp(kSystemBasketFlag, true);
        else
            m_basketsCombo->reSetFlag(m_basketsCombo->getAllFlag() & ~ETempBatchOrderFlags(QFlag(kSystemBasketFlag)));
    }
}

// The blocks' own texts; old panels had one table for both sides.
void COpBasketParamsWidget::readSavedBlocks(const bson::BSONObj &obj)
{
    const QString fallback = fieldText(obj, "SP");
    if (m_stockParams && obj.hasField("SP"))
        m_stockParams->setParam(fallback);
    if (m_hedgeWidget && obj.hasField("HP"))
        m_hedgeWidget->setParam(fieldText(obj, "HP"));
    if (m_accountsWidget && obj.hasField("AW"))
        m_accountsWidget->setParam(fieldText(obj, "AW"));
    updateAccountsToolBar();

    if (obj.hasField("BBox"))
        restoreBasket(fieldText(obj, "BBox"));

    // Old panels had one table for both sides: the stock block's text stands in for each.
    if (m_buySellWidget && m_buySellWidget->getBuyParam())
        m_buySellWidget->getBuyParam()->setParam(obj.hasField("BBP") ? fieldText(obj, "BBP") : fallback);

    if (m_buySellWidget && m_buySellWidget->getSellParam())
        m_buySellWidget->getSellParam()->setParam(obj.hasField("BSP") ? fieldText(obj, "BSP") : fallback);

    if (obj.hasField("BHP") && m_hedgeWidget)
        m_hedgeWidget->setAutoHedge(fieldText(obj, "BHP") == QLatin1String("1"));
}

// The blocks of the tabs that keep their own (credit, futures, one-key futures, connect).
void COpBasketParamsWidget::readSavedTabBlocks(const bson::BSONObj &obj)
{
    if (m_crdWidget && obj.hasField("BCPW"))
        m_crdWidget->setParam(fieldText(obj, "BCPW"));
    if (m_ftrWidget && obj.hasField("BFPW"))
        m_ftrWidget->setParam(fieldText(obj, "BFPW"));
    if (m_buttonsBar && obj.hasField("BB"))
        m_buttonsBar->setParam(fieldText(obj, "BB"));
    if (m_ftrOneKeyWidget && obj.hasField("BFOKOPW"))
        m_ftrOneKeyWidget->setParam(fieldText(obj, "BFOKOPW"));
    if (m_ggtWidget && m_ggtWidget->getBuyParam() && obj.hasField("BGBP"))
        m_ggtWidget->getBuyParam()->setParam(fieldText(obj, "BGBP"));
    if (m_ggtWidget && m_ggtWidget->getSellParam() && obj.hasField("BGSP"))
        m_ggtWidget->getSellParam()->setParam(fieldText(obj, "BGSP"));
}

void COpBasketParamsWidget::readSavedSizing(const bson::BSONObj &obj)
{
    // The modes on offer depend on the tab just read; the saved mode is looked up among them.
    resetVolumnCombobox();

    if (obj.hasField("VTB")) {
        const QString mode = fieldText(obj, "VTB");
        setCurrentVolumnIndex(savedInt(mode));
        if (mode == QLatin1String("0"))
            showCopiesOrMoney(VT_COPIES);
        else if (mode == QLatin1String("1"))
            showCopiesOrMoney(VT_MONEY);
        reSetCopisesCell();
    }

    if (obj.hasField("CC"))
        resetCopiesValidator(savedDouble(fieldText(obj, "CC"), 1.0));
    if (obj.hasField("MC") && m_moneyCell)
        m_moneyCell->setValue(savedDouble(fieldText(obj, "MC")));
}

// The per-tab entries; a damaged one throws like a damaged text.
void COpBasketParamsWidget::readSavedTabEntries(const bson::BSONObj &obj)
{
    // The entries were all saved under the name of the tab current at the time, so only that
    // tab finds one, and it is the first of the object: the entry of the lowest tab word.
    // Clients have read their texts back this way for long; it is kept.
    const bson::BSONObj inner = bson::fromjson(fieldText(obj, "bsonParam").toStdString());
    const QStringList names = QStringLiteral("COM_BUY%COM_ALL%COM_CRD_ALL%COM_SGT_ALL%COM_HGT_ALL%COM_SELL")
                                  .split(QLatin1Char('%'));
    for (const QString &name : names) {
        const std::string key = name.toStdString();
        if (inner.hasField(key.c_str()))
            m_hedgeParams[getOpTypeFromQString(name)] = fieldText(inner, key.c_str());
    }
}

void COpBasketParamsWidget::setOldParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (text.isEmpty()) {
        m_tradeOpType = TOT_BUY;
        setCurrentOperationType(TOT_BUY);
        deliverEvent(1072, 0, static_cast<int>(TOT_BUY), QString(), nullptr);
    }
    const int count = parts.size();

    if (count > 0 && m_tabGroup) {
        // Old clients had no connect tabs, so their words need no mapping.
        m_tradeOpType = savedTab(parts.at(0));
    }
    QString fallback;
    if (count > 1 && m_stockParams) {
        fallback = parts.at(1);
        m_stockParams->setParam(fallback);
        updateAccountsToolBar();
    }
    if (count > 2 && m_hedgeWidget)
        m_hedgeWidget->setParam(parts.at(2));
    if (count > 3 && m_accountsWidget) {
        m_accountsWidget->setParam(parts.at(3));
        updateAccountsToolBar();
    }
    if (count > 4)
        restoreBasket(parts.at(4));
    if (m_buySellWidget && m_buySellWidget->getBuyParam())
        m_buySellWidget->getBuyParam()->setParam(count > 5 ? parts.at(5) : fallback);
    if (m_buySellWidget && m_buySellWidget->getSellParam())
        m_buySellWidget->getSellParam()->setParam(count > 6 ? parts.at(6) : fallback);
    if (count > 7 && m_hedgeWidget)
        m_hedgeWidget->setAutoHedge(parts.at(7) == QLatin1String("1"));
    if (count > 8 && m_volumnCombobox) {
        // The old text kept the row of the combo, not the mode.
        const int row = savedInt(parts.at(8));
        m_volumnCombobox->setCurrentIndex(row);
        if (row == 0)
            showCopiesOrMoney(VT_COPIES);
        else if (row == 1)
            showCopiesOrMoney(VT_MONEY);
    }
    if (count > 9)
        resetCopiesValidator(savedDouble(parts.at(9), 1.0));
    if (count > 10 && m_moneyCell)
        m_moneyCell->setValue(savedDouble(parts.at(10)));
    if (count > 11 && m_crdWidget)
        m_crdWidget->setParam(parts.at(11));
    if (count > 12 && m_ftrWidget)
        m_ftrWidget->setParam(parts.at(12));
    if (count > 13 && m_buttonsBar)
        m_buttonsBar->setParam(parts.at(13));
    if (count > 14 && m_contractCombo) {
        const int index = m_contractCombo->findData(savedInt(parts.at(14)));
        if (index >= 0)
            m_contractCombo->setCurrentIndex(index);
    }
    for (int i = 15; i < count; ++i) {
        const QString &entry = parts.at(i);
        if (!entry.isEmpty())
            m_hedgeParams[savedWord(entry.section(QLatin1Char('*'), 0, 0))] = entry;
    }

    finishRestore();
}

// The last steps of every restore, whatever the text's format.
void COpBasketParamsWidget::finishRestore()
{
    setCurrentOperationType(m_tradeOpType);
    // Only the tab's own entry applies; a tab without one (the futures tabs keep none) keeps the
    // sizing the text gave it instead of falling back to one copy.
    if (m_hedgeParams.contains(m_tradeOpType))
        loadHedgeParam();
    updateCmdParamVisible();
    deliverEvent(1072, 0, static_cast<int>(m_tradeOpType), QString(), nullptr);
    // The list was sized when the basket was restored, before the tab's entry gave the sizing
    // mode and its percentage (an index basket's own modes are offered only once it is chosen),
    // so it could show and send 100 % of the assets beside a cell reading 15 %. It is sized
    // again by what the form now shows, as a switch of tab does.
    recalculate(0);
}

void COpBasketParamsWidget::saveHedgeParam() const
{
    if ((m_tradeOpType & kPerTabBits) == 0)
        return;
    if (!m_basketsCombo || !m_volumnCombobox || !m_copiesCell || !m_moneyCell || !m_sellRatioCell || !m_assetRatioCell
        || !m_buttonsBar || !m_contractCell || !m_totalLotsCell)
        return;

    // Joined, not substituted into a template: one arg() after the other took a "%1" in a
    // basket name for the place of a later field.
    const bool hedged = m_hedgeWidget && m_hedgeWidget->isAutoHedgeCheck();
    m_hedgeParams[m_tradeOpType] = QStringList{QString::number(static_cast<qint32>(m_tradeOpType)),
                                               hedged ? QStringLiteral("1") : QStringLiteral("0"),
                                               m_hedgeWidget ? m_hedgeWidget->param() : QString(),
                                               QString::number(static_cast<int>(m_basketsCombo->batchOp())),
                                               escapedName(m_basketsCombo->currentText()),
                                               QString::number(getCurrentVolumnType()),
                                               cellText(m_copiesCell),
                                               cellText(m_moneyCell),
                                               cellText(m_sellRatioCell),
                                               cellText(m_assetRatioCell),
                                               m_buttonsBar->getCommandChange() ? QStringLiteral("true") : QStringLiteral("false"),
                                               QString::number(m_contractCell->toInt()),
                                               QString::number(m_totalLotsCell->toInt())}
                                       .join(QLatin1Char('*'));
}

void COpBasketParamsWidget::loadHedgeParam()
{
    if (m_copiesCell) {
        m_copiesCell->setPrecision(0);
        m_copiesCell->setIntValidator(QStringLiteral("份"), 0, 1000000000, 1);
        m_copiesCell->setInt(1);
    }

    const auto found = m_hedgeParams.constFind(m_tradeOpType);
    if (found == m_hedgeParams.constEnd()) {
        if (m_buttonsBar)
            m_buttonsBar->setCommandChange(true);
        resetCopiesValidator(1.0);
        resetLayout();
        return;
    }

    const QStringList parts = found.value().split(QLatin1Char('*'));
    const int count = parts.size();
    if (count > 1 && m_hedgeWidget)
        m_hedgeWidget->setAutoHedge(savedInt(parts.at(1)) != 0);
    if (count > 2 && m_hedgeWidget)
        m_hedgeWidget->setParam(parts.at(2));

    int batch = 0;
    if (count > 3) {
        batch = savedInt(parts.at(3));
        if (batch != 0) {
            int flags = batch;
            // The system groups belong to the tabs that show them; elsewhere the list is dropped.
            if (!isShowSystemBasket(m_tradeOpType))
                flags &= ~kSystemBasketFlag;
            if (m_basketsCombo)
                m_basketsCombo->setBatchOp(flags, true);
            setItemsVisible(getCurrentVolumnType(), batch);
        }
    }
    if (count > 4 && batch == 0) {
        updateBasketSetting();
        if (m_basketsCombo)
            m_basketsCombo->setBasket(unescapedName(parts.at(4)), false);
        setItemsVisible(getCurrentVolumnType(), 0);
    }

    resetVolumnCombobox();

    if (count > 5 && batch == 0) {
        setCurrentVolumnIndex(savedInt(parts.at(5)));
        // The sizing row tells the form only of the trader's own picks, so the cell of the mode
        // set here is shown here: the cell of the mode the combo held before stayed on view, a
        // money cell beside sizing by index units or by net value.
        setItemsVisible(getCurrentVolumnType(), 0);
    }
    if (count > 6)
        resetCopiesValidator(savedDouble(parts.at(6), 1.0));
    if (count > 7 && m_moneyCell)
        m_moneyCell->setValue(savedDouble(parts.at(7)));
    if (count > 8 && (batch == BATCH_SELL || batch == BATCH_POSITION_SELL) && m_sellRatioCell)
        m_sellRatioCell->setValue(savedDouble(parts.at(8)));
    if (count > 9 && m_assetRatioCell)
        m_assetRatioCell->setValue(savedDouble(parts.at(9)));
    if (m_buttonsBar)
        m_buttonsBar->setCommandChange(count <= 10 || parts.at(10) == QLatin1String("true"));
    if (count > 11 && m_contractCell)
        m_contractCell->setValue(savedInt(parts.at(11)));
    // The total lots are written at index 12 and looked for at index 13, so a text of thirteen
    // fields never sets them. Texts of every client are written so; the read stays as it is.
    if (count > 13 && m_totalLotsCell)
        m_totalLotsCell->setValue(savedInt(parts.at(13)));

    resetLayout();
}

void COpBasketParamsWidget::restoreBasket(const QString &name)
{
    if (m_basketsCombo) {
        // The saved basket belongs to the saved tab: a futures basket is found only among the
        // futures baskets, so the picker lists those of the tab before the name is looked up.
        setPickerBrokerType(pickerBrokerTypeOf(m_tradeOpType));
        m_basketsCombo->setBasket(name, false);
    }
    recalculate(0);
}

void COpBasketParamsWidget::setCurrentVolumnIndex(int mode)
{
    if (!m_volumnCombobox)
        return;
    const int index = m_volumnCombobox->findData(mode);
    if (index >= 0)
        m_volumnCombobox->setCurrentIndex(index);
}

void COpBasketParamsWidget::showCopiesOrMoney(int mode)
{
    if (m_copiesCell)
        m_copiesCell->setVisible(mode == VT_COPIES);
    if (m_moneyCell)
        m_moneyCell->setVisible(mode == VT_MONEY);
}

void COpBasketParamsWidget::updateAccountsToolBar()
{
    if (!m_accountsWidget)
        return;
    const quint64 tab = m_tradeOpType;
    m_accountsWidget->setShowToolBar(tab != TOT_ONEKEY_FUTURE && tab != TOT_FUTURE && tab != TOT_ALL && tab != TOT_CREDIT);
}

} // namespace TC
