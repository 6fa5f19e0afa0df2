// The order-setting text (price type, order type, algorithm and their values of one operation),
// read on its own and in its place in each stock block's text inside the panel's text; the order
// button then places with the setting it gave.
#include "CFuzzPanelHost.h"

#include "OrderSettingText.h"

#include "Bson.h"

#include <QStringList>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    CFuzzPanelHost::instance();
    return 0;
}

namespace {

// A stock block's text with the setting of every operation replaced.
QString withSetting(const std::string &blockText, const QString &setting)
{
    QStringList block = QString::fromStdString(blockText).split(QLatin1Char(':'));
    for (int i = 0; i + 1 < block.size(); ++i) {
        const int mark = block.at(i).indexOf(QLatin1Char('='));
        bool number = false;
        block.at(i).left(mark).toInt(&number);
        if (mark > 0 && number)
            block[i] = block.at(i).left(mark + 1) + setting;
    }
    return block.join(QLatin1Char(':'));
}

// The panel's text with the setting in every stock block of the form (the stock tabs' block,
// the one-key tab's buy and sell blocks, the connect tab's).
QString withBlockSetting(const QString &panelText, const QString &setting)
{
    QStringList parts = panelText.split(QLatin1Char('/'));
    bson::BSONObj form;
    if (!ttservice::parseJson(parts.at(0).toStdString(), form))
        return QString();
    bson::BSONObjBuilder builder;
    for (bson::BSONObjIterator it(form); it.more();) {
        const bson::BSONElement e = it.next();
        const std::string name = e.fieldName();
        if (name == "SP" || name == "BBP" || name == "BSP" || name == "BGBP" || name == "BGSP")
            builder.append(name, withSetting(e.str(), setting).toStdString());
        else
            builder.append(e);
    }
    parts[0] = QString::fromStdString(builder.obj().jsonString(bson::Strict, 0));
    return parts.join(QLatin1Char('/'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QString setting = CFuzzPanelHost::text(data, size);
    TC::orderSettingToString(TC::orderSettingFromString(setting));

    std::unique_ptr<TC::CBasketOperationPanel> panel = CFuzzPanelHost::instance().newPanel();
    // The block keeps a setting with ":" and "$" turned into ";" and "~"; the separators of the
    // outer texts never occur in one.
    setting.replace(QLatin1Char(':'), QLatin1Char(';')).replace(QLatin1Char('$'), QLatin1Char('~'));
    for (const QChar separator : {QLatin1Char('/'), QLatin1Char('|'), QLatin1Char('%'), QLatin1Char('='), QLatin1Char('*')})
        setting.remove(separator);
    const QString text = withBlockSetting(panel->param(), setting);
    if (text.isEmpty())
        return 0;
    panel->setParam(text);
    CFuzzPanelHost::settle();
    CFuzzPanelHost::pressOrderButton(*panel);
    panel->param();
    return 0;
}
