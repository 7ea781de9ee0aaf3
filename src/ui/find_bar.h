#pragma once

#include "explorer/find.h"

#include <optional>
#include <vector>

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace tessaview {

class CTransponderTableListPaneWnd;
class CTransponderValuePaneWnd;

/// Looks for a text in the labels, names and values of the tree while it is typed, in slices of
/// time between which the window goes on. Only the way to the place found is opened; where nothing
/// is found, what the search has opened is closed again, and what was selected before is selected.
class FindBar : public QWidget {
    Q_OBJECT

public:
    FindBar(CTransponderTableListPaneWnd& treePane, CTransponderValuePaneWnd& valuePane,
            QWidget* parent);

    /// Shows the bar, ready for a text.
    void open();
    /// Hides it and gives the focus back to the tree.
    void close();
    void findNext() { start(TreeSearch::Direction::Forward, false); }
    void findPrevious() { start(TreeSearch::Direction::Backward, false); }

    QLineEdit& field() { return *field_; }
    bool isSearching() const { return search_.has_value(); }
    QString message() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void start(TreeSearch::Direction direction, bool takesStart);
    void cancel();
    void goOn();
    void reveal(const TreePlace& place);
    void show(const TreePlace& place);
    void goBack();
    void forget();
    void say(const QString& message);
    std::optional<TreePlace> selectedPlace() const;

    CTransponderTableListPaneWnd& treePane_;
    CTransponderValuePaneWnd& valuePane_;
    QLineEdit* field_;
    QLabel* message_;
    QTimer slice_;
    std::optional<TreeSearch> search_;

    /// Where the user was before hit after hit was shown, if at a node.
    struct Origin {
        std::optional<TreePlace> place;
    };
    std::optional<Origin> origin_;
    std::vector<NodeId> opened_; ///< since then, those below first
    TreePlace hit_;              ///< shown last
};

} // namespace tessaview
