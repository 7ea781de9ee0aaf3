#pragma once

#include "explorer/find.h"

#include <optional>

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace tessaview {

class CTransponderTableListPaneWnd;
class CTransponderValuePaneWnd;

/// Looks for a text in the labels and values of the tree while it is typed, in slices of time
/// between which the window goes on. Only the way to the place found is opened.
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
    void say(const QString& message);
    TreePlace selectedPlace() const;

    CTransponderTableListPaneWnd& treePane_;
    CTransponderValuePaneWnd& valuePane_;
    QLineEdit* field_;
    QLabel* message_;
    QTimer slice_;
    std::optional<TreeSearch> search_;
};

} // namespace tessaview
