#pragma once

#include "ui/output_lines.h"

#include <cstdint>
#include <span>

#include <QDockWidget>

class QStackedWidget;
class QTabBar;

namespace tessaview {

class CHexView;
class COutputListBox;

/// The bar at the bottom: the page "OUTPUT" with the lines of what runs, the page "VALUE" with the
/// bytes picked last.
class COutputBar : public QDockWidget {
    Q_OBJECT

public:
    explicit COutputBar(QWidget* parent);

    OutputLines& lines() { return lines_; }
    COutputListBox& list() { return *list_; }
    CHexView& hexView() { return *hexView_; }
    QTabBar& tabs() { return *tabs_; }
    /// The list or the hex view, whichever is in front.
    QWidget* page() const;

    /// Shows bytes on their page, without bringing it to the front.
    void showBytes(std::span<const std::uint8_t> bytes);

private:
    void showPage(int page);

    OutputLines lines_;
    QStackedWidget* pages_;
    COutputListBox* list_;
    CHexView* hexView_;
    QTabBar* tabs_;
};

} // namespace tessaview
