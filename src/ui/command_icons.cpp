#include "ui/command_icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// The linker leaves out the resources of a library of which nothing is asked for.
static void initIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace tessaview {

namespace {

/// Draws an image of black lines in the colour that the palette has for texts of buttons.
class LineEngine : public QIconEngine {
public:
    explicit LineEngine(QByteArray image) : image_(std::move(image)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = QGuiApplication::palette().color(group, QPalette::ButtonText);
        QSvgRenderer renderer(QByteArray(image_).replace("#000", colour.name().toLatin1()));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect({}, size), mode, state);
        return image;
    }

    QIconEngine* clone() const override { return new LineEngine(image_); }

private:
    QByteArray image_;
};

} // namespace

QIcon commandIcon(Command command)
{
    const char* const name = commandInfo(command).icon;
    if (!name)
        return {};
    initIcons();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new LineEngine(file.readAll()));
}

} // namespace tessaview
