#include "ui/application/about_dialog.h"

#include "platform/build_info.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace tessaview {

namespace {

constexpr int kIconSize = 64;

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About Tessaview3"));
    auto* const icon = new QLabel;
    icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
    auto* const text =
        new QLabel(QStringLiteral("Tessaview Version 3.0 build %1").arg(kBuildNumber));
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* const upper = new QHBoxLayout;
    upper->addWidget(icon);
    upper->addSpacing(12);
    upper->addWidget(text, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(upper);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    buttons->setFocus();
}

} // namespace tessaview
