#include "ui/command_icons.h"

#include <algorithm>

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace tessaview {

namespace {

// Each draws on a field of kCommandIconSize; the pen is set.
using Drawing = void (*)(QPainter&);

constexpr qreal kRight = 16;

QPolygonF sheet(qreal left, qreal top, qreal width, qreal height)
{
    const qreal corner = 3;
    return QPolygonF({{left, top},
                      {left + width - corner, top},
                      {left + width, top + corner},
                      {left + width, top + height},
                      {left, top + height}});
}

void drawSheet(QPainter& painter)
{
    painter.drawPolygon(sheet(3.5, 1.5, 9, 12));
    painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void drawFolder(QPainter& painter)
{
    painter.drawPolyline(
        QPolygonF({{1.5, 12.5}, {1.5, 3.5}, {5.5, 3.5}, {7.5, 5.5}, {12.5, 5.5}, {12.5, 7.5}}));
    painter.drawPolygon(QPolygonF({{1.5, 12.5}, {4.5, 7.5}, {15, 7.5}, {12.5, 12.5}}));
}

void drawDisk(QPainter& painter)
{
    painter.drawPolygon(
        QPolygonF({{2.5, 1.5}, {11.5, 1.5}, {13.5, 3.5}, {13.5, 13.5}, {2.5, 13.5}}));
    painter.drawRect(QRectF(5.5, 1.5, 5, 3));
    painter.drawRect(QRectF(4.5, 8.5, 7, 5));
}

void drawScissors(QPainter& painter)
{
    painter.drawLine(QPointF(5, 1.5), QPointF(10, 10));
    painter.drawLine(QPointF(11, 1.5), QPointF(6, 10));
    painter.drawEllipse(QRectF(3, 9.5, 4, 4));
    painter.drawEllipse(QRectF(9, 9.5, 4, 4));
}

void drawTwoSheets(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{10.5, 3}, {10.5, 1.5}, {2.5, 1.5}, {2.5, 10.5}, {5, 10.5}}));
    painter.drawPolygon(sheet(5.5, 4.5, 8, 9));
}

void drawClipboard(QPainter& painter)
{
    painter.drawRect(QRectF(2.5, 2.5, 11, 11));
    painter.drawRect(QRectF(5.5, 1, 5, 3));
    for (const qreal y : {6.5, 8.5, 10.5})
        painter.drawLine(QPointF(5, y), QPointF(11, y));
}

void drawPrinter(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{4.5, 5.5}, {4.5, 1.5}, {11.5, 1.5}, {11.5, 5.5}}));
    painter.drawRect(QRectF(1.5, 5.5, 13, 5));
    painter.drawRect(QRectF(4.5, 9, 7, 4.5));
}

void drawQuestion(QPainter& painter)
{
    painter.drawEllipse(QRectF(2, 1, 12, 12));
    QPainterPath hook(QPointF(6, 5.5));
    hook.cubicTo(6, 2.5, 10.2, 3, 10, 5.4);
    hook.cubicTo(9.8, 6.8, 8, 6.8, 8, 8.5);
    painter.drawPath(hook);
    painter.drawPoint(QPointF(8, 10.5));
}

void drawUp(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{4, 9.5}, {8, 5.5}, {12, 9.5}}));
}

void drawDown(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{4, 5.5}, {8, 9.5}, {12, 5.5}}));
}

Drawing drawingOf(Command command)
{
    switch (command) {
    case Command::FileNew:
        return drawSheet;
    case Command::FileOpen:
        return drawFolder;
    case Command::FileSave:
        return drawDisk;
    case Command::Cut:
        return drawScissors;
    case Command::Copy:
        return drawTwoSheets;
    case Command::Paste:
        return drawClipboard;
    case Command::FilePrint:
        return drawPrinter;
    case Command::About:
        return drawQuestion;
    case Command::FindNext:
        return drawDown;
    case Command::FindPrevious:
        return drawUp;
    default:
        return nullptr;
    }
}

class LineEngine : public QIconEngine {
public:
    explicit LineEngine(Drawing drawing) : drawing_(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal scale =
            std::min(rect.width() / kRight, rect.height() / qreal(kCommandIconSize.height()));
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.2,
                             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        drawing_(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect({}, size), mode, state);
        return image;
    }

    QIconEngine* clone() const override { return new LineEngine(drawing_); }

private:
    Drawing drawing_;
};

} // namespace

QIcon commandIcon(Command command)
{
    const Drawing drawing = drawingOf(command);
    return drawing ? QIcon(new LineEngine(drawing)) : QIcon();
}

} // namespace tessaview
