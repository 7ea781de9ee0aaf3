#include "ui/main_frame.h"

#include "ui/charset_menu.h"
#include "ui/command_icons.h"
#include "ui/empty_document.h"
#include "ui/find_bar.h"
#include "ui/menu_keys.h"
#include "ui/message.h"
#include "ui/output_bar.h"
#include "ui/recent_files.h"
#include "ui/text.h"
#include "ui/tree_pane.h"
#include "ui/value_pane.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <QAction>
#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace tessaview {

namespace {

constexpr QSize kFrameSize(1280, 800);
/// What the window takes of a small screen, for its own frame to fit.
constexpr double kScreenShare = 0.9;
/// How the width is shared between tree and values.
constexpr int kTreeShare = 2;
constexpr int kValueShare = 3;
constexpr int kOutputHeight = 200;
constexpr int kRefreshMilliseconds = 200;

QKeySequence keySequence(std::string_view keys)
{
    return {toQString(keys), QKeySequence::PortableText};
}

} // namespace

CMainFrame::CMainFrame(CTessaview3Doc& document, HelpAddresses addresses)
    : document_(document)
    , addresses_(std::move(addresses))
{
    document_.setView(this);
    createActions();
    createToolBar();
    createStatusBar();
    createOutputBar();
    createPanes();
    createMenus();
    addMenuKeys(*this);
    resize(kFrameSize.boundedTo(screen()->availableSize() * kScreenShare));
    resizeDocks({outputBar_}, {kOutputHeight}, Qt::Vertical);
    updateTitle();
    refresh();
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &CMainFrame::refresh);
    timer->start(kRefreshMilliseconds);
}

CMainFrame::~CMainFrame()
{
    document_.setView(nullptr);
    // The bars still tell that they are hidden when the window goes, which is too late for us.
    toolBar_->disconnect(this);
    outputBar_->disconnect(this);
}

void CMainFrame::createActions()
{
    for (const CommandInfo& info : commands()) {
        auto* const action = new QAction(toQString(info.text), this);
        action->setIcon(commandIcon(info.id));
        action->setIconVisibleInMenu(false);
        action->setStatusTip(toQString(info.prompt));
        if (!info.tip.empty())
            action->setToolTip(toQString(info.tip));
        QList<QKeySequence> keys;
        for (const std::string_view key : info.keys) {
            if (!key.empty())
                keys.append(keySequence(key));
        }
        action->setShortcuts(keys);
        action->setCheckable(info.isCheckable);
        connect(action, &QAction::triggered, this, [this, id = info.id] { run(id); });
        addAction(action);
        actions_.emplace(info.id, action);
    }
}

void CMainFrame::createToolBar()
{
    toolBar_ = addToolBar(QStringLiteral("Toolbar"));
    toolBar_->setIconSize(kCommandIconSize);
    toolBar_->setAllowedAreas(Qt::AllToolBarAreas);
    for (const MenuLine& line : toolbar()) {
        if (line.kind == MenuLine::Kind::Separator)
            toolBar_->addSeparator();
        else
            toolBar_->addAction(action(line.command));
    }
    connect(toolBar_, &QToolBar::visibilityChanged, this, &CMainFrame::refresh);
}

void CMainFrame::createStatusBar()
{
    statusPane_ = new QLabel(QStringLiteral("NOT LOCKED"));
    statusPane_->setTextFormat(Qt::PlainText);
    statusPane_->setAccessibleDescription(QStringLiteral("Tuner status"));
    statusPane_->setIndent(4);
    // A long text is cut by the window, not the other way round.
    statusPane_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(statusPane_, 1);
}

void CMainFrame::createOutputBar()
{
    outputBar_ = new COutputBar(this);
    addDockWidget(Qt::BottomDockWidgetArea, outputBar_);
    connect(outputBar_, &QDockWidget::visibilityChanged, this, &CMainFrame::refresh);
}

void CMainFrame::createPanes()
{
    auto* const client = new QWidget;
    splitter_ = new QSplitter;
    valuePane_ = new CTransponderValuePaneWnd(splitter_);
    treePane_ = new CTransponderTableListPaneWnd(document_, *valuePane_, splitter_);
    splitter_->insertWidget(0, treePane_);
    splitter_->setChildrenCollapsible(false);
    splitter_->setStretchFactor(0, kTreeShare);
    splitter_->setStretchFactor(1, kValueShare);
    splitter_->setSizes({kFrameSize.width() * kTreeShare, kFrameSize.width() * kValueShare});
    findBar_ = new FindBar(*treePane_, *valuePane_, client);

    auto* const layout = new QVBoxLayout(client);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(splitter_, 1);
    layout->addWidget(findBar_);
    setCentralWidget(client);
    connect(valuePane_, &CTransponderValuePaneWnd::bytesChosen, this, &CMainFrame::showBytes);
    treePane_->setFocus();
}

void CMainFrame::createMenus()
{
    for (const Menu& bar : tessaview::menuBar()) {
        QMenu* const menu = menuBar()->addMenu(toQString(bar.title));
        menu->menuAction()->setStatusTip(QStringLiteral("Ready"));
        fillMenu(*menu, bar.lines);
        connect(menu, &QMenu::aboutToShow, this, &CMainFrame::refresh);
        if (menu->actions().contains(action(Command::RecentFile)))
            connect(menu, &QMenu::aboutToShow, this, [this, menu] { showRecentFiles(*menu); });
        if (menu->actions().contains(action(Command::OutputToggle))) {
            menu->addSeparator();
            menu->addMenu(new CharsetMenu(*treePane_, menu));
        }
    }
}

void CMainFrame::fillMenu(QMenu& menu, std::span<const MenuLine> lines) const
{
    QMenu* current = &menu;
    for (const MenuLine& line : lines) {
        switch (line.kind) {
        case MenuLine::Kind::Item:
            current->addAction(action(line.command));
            break;
        case MenuLine::Kind::Separator:
            current->addSeparator();
            break;
        case MenuLine::Kind::Submenu:
            current = menu.addMenu(toQString(line.title));
            current->menuAction()->setStatusTip(QStringLiteral("Ready"));
            break;
        case MenuLine::Kind::EndOfSubmenu:
            current = &menu;
            break;
        }
    }
}

/// Puts the recent files in the place of their item, which shows only when there are none.
void CMainFrame::showRecentFiles(QMenu& menu)
{
    QAction* const place = action(Command::RecentFile);
    for (QAction* const shown : std::exchange(recentFiles_, {}))
        delete shown;
    for (const QString& file : recent_files::list()) {
        const QString name = withoutMnemonic(QFileInfo(file).fileName());
        auto* const item =
            new QAction(QStringLiteral("&%1 %2").arg(recentFiles_.size() + 1).arg(name), this);
        item->setStatusTip(file);
        connect(item, &QAction::triggered, this, [this, file] { openDocument(file); });
        menu.insertAction(place, item);
        recentFiles_.append(item);
    }
    place->setVisible(recentFiles_.isEmpty());
}

void CMainFrame::refresh()
{
    const DriverState driver = document_.driverState();
    for (const auto& [id, action] : actions_)
        action->setEnabled(document_.isEnabled(id));
    if (driver.wasAsked) {
        QString text = toQString(driver.statusText.value_or("STATUS UNKNOWN"));
        statusPane_->setText(text.replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    action(Command::IncompleteStreams)->setChecked(document_.showsIncomplete());
    action(Command::ToolbarToggle)->setChecked(!toolBar_->isHidden());
    action(Command::StatusBarToggle)->setChecked(!statusBar()->isHidden());
    if (outputBar_)
        action(Command::OutputToggle)->setChecked(!outputBar_->isHidden());
}

QString CMainFrame::statusText() const
{
    return statusPane_->text();
}

void CMainFrame::run(Command command)
{
    if (!runFrameCommand(command))
        document_.run(command);
    refresh();
}

bool CMainFrame::runFrameCommand(Command command)
{
    switch (command) {
    case Command::FileSave:
        document_.path().isEmpty() ? saveAs() : save(document_.path());
        return true;
    case Command::FileSaveAs:
        saveAs();
        return true;
    case Command::Exit:
        close();
        return true;
    case Command::ToolbarToggle:
        toolBar_->setVisible(toolBar_->isHidden());
        return true;
    case Command::StatusBarToggle:
        statusBar()->setVisible(statusBar()->isHidden());
        return true;
    case Command::OutputToggle:
        outputBar_->setVisible(outputBar_->isHidden());
        return true;
    case Command::Find:
        findBar_->open();
        return true;
    case Command::FindNext:
        findBar_->findNext();
        return true;
    case Command::FindPrevious:
        findBar_->findPrevious();
        return true;
    case Command::NextPane:
        goToPane(1);
        return true;
    case Command::PreviousPane:
        goToPane(-1);
        return true;
    case Command::Homepage:
        openAddress(toQString(addresses_.homePage));
        return true;
    case Command::EmailAuthor:
        openAddress(toQString(addresses_.email));
        return true;
    case Command::CheckForUpdates:
        openAddress(updatesAddress());
        return true;
    default:
        return false;
    }
}

bool CMainFrame::openDocument(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QFile file(absolute);
    if (!file.open(QIODevice::ReadOnly)) {
        recent_files::remove(absolute);
        complain(this, QStringLiteral("%1 cannot be opened: %2").arg(path, file.errorString()));
        return false;
    }
    document_.setPath(absolute);
    recent_files::add(absolute);
    updateTitle();
    return true;
}

void CMainFrame::saveAs()
{
    const QString path = QFileDialog::getSaveFileName(
        this, QStringLiteral("Save As"),
        document_.path().isEmpty() ? document_.title() : document_.path());
    if (!path.isEmpty())
        save(QFileInfo(path).absoluteFilePath());
}

void CMainFrame::save(const QString& path)
{
    if (!saveEmptyDocument(this, path, !document_.model().empty()))
        return;
    document_.setPath(path);
    recent_files::add(path);
    updateTitle();
}

void CMainFrame::openAddress(const QString& address)
{
    if (!QDesktopServices::openUrl(QUrl(address)))
        complain(this, QStringLiteral("No program could be found that opens %1").arg(address));
}

QString CMainFrame::updatesAddress() const
{
    return toQString(addresses_.updates) +
           QStringLiteral("?PID=100&BUILD=%1").arg(addresses_.buildNumber);
}

void CMainFrame::goToPane(int step)
{
    std::vector<QWidget*> panes{treePane_, valuePane_};
    if (outputBar_->isVisible())
        panes.push_back(outputBar_->page());
    const auto focused = std::find(panes.begin(), panes.end(), focusWidget());
    const auto count = static_cast<std::ptrdiff_t>(panes.size());
    const std::ptrdiff_t from =
        focused != panes.end() ? focused - panes.begin() : (step > 0 ? -1 : count);
    panes[static_cast<std::size_t>((from + step + count) % count)]->setFocus(
        Qt::ShortcutFocusReason);
}

void CMainFrame::updateTitle()
{
    setWindowTitle(document_.title() + QStringLiteral(" - Tessaview"));
}

void CMainFrame::showBytes(std::span<const std::uint8_t> bytes)
{
    outputBar_->showBytes(bytes);
}

void CMainFrame::ClearTree()
{
    treePane_->ClearTree();
}

void CMainFrame::RebuildTree(const NetworkMap& model)
{
    treePane_->RebuildTree(model);
}

const CharsetPolicy& CMainFrame::charsetPolicy() const
{
    return treePane_->charsetPolicy();
}

} // namespace tessaview
