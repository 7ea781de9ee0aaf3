#pragma once

#include "charset/charset_policy.h"

#include <cstdint>
#include <optional>

#include <QMenu>

namespace tessaview {

class CTransponderTableListPaneWnd;

/// "Character table" of the menu View: what broadcast texts are read with, of all networks or of
/// the one in which a node is selected. A choice shows at once and is stored.
class CharsetMenu : public QMenu {
    Q_OBJECT

public:
    CharsetMenu(CTransponderTableListPaneWnd& treePane, QWidget* parent);

private:
    using Network = std::optional<std::uint32_t>;

    void build();
    void addRules(QMenu& menu, const Network& network, const CharsetRule* chosen);
    void addRule(QMenu& menu, const QString& text, const CharsetRule& rule,
                 const CharsetRule* chosen);
    void choose(const CharsetRule& rule);
    void forget(std::uint32_t network);
    void use(const CharsetPolicy& policy);

    CTransponderTableListPaneWnd& treePane_;
};

} // namespace tessaview
