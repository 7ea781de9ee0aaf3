#pragma once

#include <QTreeView>

namespace tessaview {

class OutputLines;

/// The page "OUTPUT": the lines as they come, the last one in sight.
class COutputListBox : public QTreeView {
    Q_OBJECT

public:
    COutputListBox(OutputLines& lines, QWidget* parent);

    void copyAll() const;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void linesInserted(int first, int last);
    void restart();
    void makeRoom(int first, int last);

    OutputLines& lines_;
    QAction* copyAll_;
    int longest_ = 0; ///< pixels
};

} // namespace tessaview
