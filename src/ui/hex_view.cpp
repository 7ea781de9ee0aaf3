#include "ui/hex_view.h"

#include "explorer/hex_rows.h"
#include "ui/text.h"

#include <algorithm>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

namespace tessaview {

CHexView::CHexView(QWidget* parent)
    : QAbstractScrollArea(parent)
    , copyAll_(new QAction(QStringLiteral("&Copy all rows"), this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAccessibleName(QStringLiteral("Bytes"));
    viewport()->setBackgroundRole(QPalette::Base);
    // The rows move when the thumb is released, not while it is dragged.
    verticalScrollBar()->setTracking(false);
    verticalScrollBar()->setSingleStep(1);

    copyAll_->setShortcuts(QKeySequence::Copy);
    copyAll_->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAll_, &QAction::triggered, this, &CHexView::copyAll);
    addAction(copyAll_);
    updateRange();
}

void CHexView::setBytes(std::span<const std::uint8_t> bytes)
{
    bytes_.assign(bytes.begin(), bytes.end());
    updateRange();
    verticalScrollBar()->setValue(0);
    viewport()->update();
}

int CHexView::firstRow() const
{
    return std::max(0, verticalScrollBar()->value());
}

int CHexView::rowCount() const
{
    return static_cast<int>(hexRowCount(bytes_.size()));
}

int CHexView::lineHeight() const
{
    return std::max(1, fontMetrics().lineSpacing());
}

void CHexView::updateRange()
{
    const int page = viewport()->height() / lineHeight();
    verticalScrollBar()->setPageStep(std::max(1, page));
    verticalScrollBar()->setRange(0, std::max(0, rowCount() - page));
}

void CHexView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    const int first = firstRow();
    const int last = std::min(rowCount() - 1, first + viewport()->height() / lineHeight());
    for (int row = first; row <= last; ++row) {
        const int top = (row - first) * lineHeight();
        painter.drawText(0, top + fontMetrics().ascent(),
                         toQString(hexRow(bytes_, static_cast<std::size_t>(row))));
    }
}

void CHexView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateRange();
}

void CHexView::scrollContentsBy(int /*dx*/, int dy)
{
    viewport()->scroll(0, dy * lineHeight());
}

void CHexView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateRange();
}

void CHexView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar& bar = *verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageUp:
        bar.triggerAction(QAbstractSlider::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
        break;
    case Qt::Key_Up:
        bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
        break;
    case Qt::Key_Down:
        bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
        break;
    case Qt::Key_Home:
        bar.triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        bar.triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void CHexView::copyAll() const
{
    QString text;
    for (int row = 0; row < rowCount(); ++row)
        text += toQString(hexRow(bytes_, static_cast<std::size_t>(row))) + QLatin1Char('\n');
    QGuiApplication::clipboard()->setText(text);
}

void CHexView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(copyAll_);
    menu.exec(event->globalPos());
}

} // namespace tessaview
