#pragma once

#include "ui/document.h"

#include <map>
#include <span>
#include <string>

#include <QList>
#include <QMainWindow>

class QAction;
class QLabel;
class QMenu;
class QSplitter;
class QToolBar;

namespace tessaview {

class COutputBar;
class CTransponderTableListPaneWnd;
class CTransponderValuePaneWnd;
class FindBar;

/// Where the commands of the Help menu lead, as URLs.
struct HelpAddresses {
    std::string homePage;
    std::string email;   ///< with "mailto:"
    std::string updates; ///< is asked with "PID=100" and the build number
    int buildNumber = 0;
};

/// The main window: the tree of the model, the values of the node that is selected, the output
/// below them. Nothing of its layout is kept between runs.
class CMainFrame : public QMainWindow, public DocumentView {
    Q_OBJECT

public:
    /// `document` must outlive the window, which becomes its view.
    CMainFrame(CTessaview3Doc& document, HelpAddresses addresses);
    ~CMainFrame() override;

    CTransponderTableListPaneWnd& treePane() { return *treePane_; }
    CTransponderValuePaneWnd& valuePane() { return *valuePane_; }
    COutputBar& outputBar() { return *outputBar_; }
    FindBar& findBar() { return *findBar_; }
    QString statusText() const;
    QAction* action(Command command) const { return actions_.at(command); }

    /// Takes a file as the document's, from the command line or the recent files; a file that
    /// cannot be opened is reported, and the document stays as it was.
    bool openDocument(const QString& path);

    /// Shows bytes in the hex view, without bringing it to the front.
    void showBytes(std::span<const std::uint8_t> bytes);

    /// Brings menus, toolbar and status bar up to date with the driver.
    void refresh();

    void ClearTree() override;
    void RebuildTree(const NetworkMap& model) override;
    const CharsetPolicy& charsetPolicy() const override;
    QWidget* widget() override { return this; }

private:
    void createActions();
    void createToolBar();
    void createStatusBar();
    void createOutputBar();
    void createPanes();
    void createMenus();

    void fillMenu(QMenu& menu, std::span<const MenuLine> lines) const;
    void showRecentFiles(QMenu& menu);

    void run(Command command);
    bool runFrameCommand(Command command);
    void save(const QString& path);
    void saveAs();
    void openAddress(const QString& address);
    QString updatesAddress() const;
    void goToPane(int step);
    void updateTitle();

    CTessaview3Doc& document_;
    HelpAddresses addresses_;
    std::map<Command, QAction*> actions_;
    QList<QAction*> recentFiles_; ///< shown in the menu
    QToolBar* toolBar_ = nullptr;
    QLabel* statusPane_ = nullptr;
    QSplitter* splitter_ = nullptr;
    CTransponderTableListPaneWnd* treePane_ = nullptr;
    CTransponderValuePaneWnd* valuePane_ = nullptr;
    COutputBar* outputBar_ = nullptr;
    FindBar* findBar_ = nullptr;
};

} // namespace tessaview
