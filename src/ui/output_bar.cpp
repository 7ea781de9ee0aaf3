#include "ui/output_bar.h"

#include "ui/hex_view.h"
#include "ui/output_list.h"

#include <algorithm>

#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace tessaview {

namespace {

constexpr int kTabHeight = 20;
constexpr QSize kSmallest(33, 32);
constexpr QSize kInitial(200, 200);

/// The inside of the bar, as large as the bar wants to be at first.
class Client : public QWidget {
public:
    using QWidget::QWidget;
    QSize sizeHint() const override { return kInitial; }
};

} // namespace

COutputBar::COutputBar(QWidget* parent)
    : QDockWidget(QStringLiteral("Output"), parent)
    , pages_(new QStackedWidget)
    , list_(new COutputListBox(lines_, pages_))
    , hexView_(new CHexView(pages_))
    , tabs_(new QTabBar)
{
    pages_->addWidget(list_);
    pages_->addWidget(hexView_);

    tabs_->setShape(QTabBar::RoundedSouth);
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    tabs_->addTab(QStringLiteral("OUTPUT"));
    tabs_->addTab(QStringLiteral("VALUE"));
    tabs_->setFixedHeight(std::max(kTabHeight, tabs_->sizeHint().height()));
    tabs_->setAccessibleName(QStringLiteral("Pages of the output window"));
    connect(tabs_, &QTabBar::currentChanged, this, &COutputBar::showPage);

    auto* const client = new Client;
    auto* const layout = new QVBoxLayout(client);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(pages_);
    layout->addWidget(tabs_);
    setWidget(client);
    setMinimumSize(kSmallest);
    setAllowedAreas(Qt::AllDockWidgetAreas);
}

QWidget* COutputBar::page() const
{
    return pages_->currentWidget();
}

void COutputBar::showPage(int page)
{
    pages_->setCurrentIndex(page);
    pages_->currentWidget()->setFocus();
}

void COutputBar::showBytes(std::span<const std::uint8_t> bytes)
{
    hexView_->setBytes(bytes);
}

} // namespace tessaview
