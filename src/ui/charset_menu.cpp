#include "ui/charset_menu.h"

#include "explorer/charset_settings.h"
#include "platform/format.h"
#include "ui/message.h"
#include "ui/text.h"
#include "ui/tree_pane.h"

namespace tessaview {

namespace {

QString tableText(const CharacterTable& table)
{
    return withoutMnemonic(QStringLiteral("%1 - %2").arg(table.name, table.use));
}

} // namespace

CharsetMenu::CharsetMenu(CTransponderTableListPaneWnd& treePane, QWidget* parent)
    : QMenu(QStringLiteral("&Character table"), parent)
    , treePane_(treePane)
{
    menuAction()->setStatusTip(QStringLiteral("Choose what broadcast texts are read with"));
    connect(this, &QMenu::aboutToShow, this, &CharsetMenu::build);
    build();
}

void CharsetMenu::build()
{
    qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    clear();
    const CharsetPolicy& policy = treePane_.charsetPolicy();
    addRules(*addMenu(QStringLiteral("&All networks")), {}, &policy.common());
    const Network network = treePane_.selectedNetwork();
    if (!network)
        return;
    const auto own = policy.ofNetworks().find(*network);
    const bool isOwn = own != policy.ofNetworks().end();
    QMenu* const menu = addMenu(toQString(formatted("&Network %04X", *network)));
    QAction* const common = menu->addAction(QStringLiteral("As &all networks"), this,
                                            [this, id = *network] { forget(id); });
    common->setCheckable(true);
    common->setChecked(!isOwn);
    addRules(*menu, network, isOwn ? &own->second : nullptr);
}

void CharsetMenu::addRules(QMenu& menu, const Network& network, const CharsetRule* chosen)
{
    addRule(menu, QStringLiteral("&Automatic"), {.original_network_id = network}, chosen);
    for (const bool beatsSelector : {false, true}) {
        QMenu* const tables =
            menu.addMenu(beatsSelector ? QStringLiteral("All texts, &whatever they select")
                                       : QStringLiteral("Texts without &selector"));
        for (const CharacterTable& table : selectableTables())
            addRule(
                *tables, tableText(table),
                {.table = &table, .beatsSelector = beatsSelector, .original_network_id = network},
                chosen);
    }
}

void CharsetMenu::addRule(QMenu& menu, const QString& text, const CharsetRule& rule,
                          const CharsetRule* chosen)
{
    QAction* const action = menu.addAction(text, this, [this, rule] { choose(rule); });
    action->setCheckable(true);
    action->setChecked(chosen && *chosen == rule);
}

void CharsetMenu::choose(const CharsetRule& rule)
{
    CharsetPolicy policy = treePane_.charsetPolicy();
    policy.set(rule);
    use(policy);
}

void CharsetMenu::forget(std::uint32_t network)
{
    CharsetPolicy policy = treePane_.charsetPolicy();
    policy.forget(network);
    use(policy);
}

void CharsetMenu::use(const CharsetPolicy& policy)
{
    treePane_.setCharsetPolicy(policy);
    try {
        Settings settings(defaultSettingsFile());
        storeCharsetPolicy(settings, policy);
    } catch (const SettingsError& error) {
        complain(&treePane_,
                 QStringLiteral("The choice holds until the program ends: %1").arg(error.what()));
    }
}

} // namespace tessaview
