#include "drivers/capture/dialogs/tuning_dialog.h"

#include "component/path_text.h"
#include "drivers/capture/capture_tuner.h"
#include "drivers/capture/stream_copy.h"
#include "drivers/common/dialogs/qt_text.h"
#include "platform/settings.h"
#include "tuning/tuning_text.h"

#include <algorithm>
#include <memory>
#include <system_error>

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTreeView>
#include <QUrl>

namespace tessaview {

namespace {

constexpr int kSourceRole = Qt::UserRole + 1; // the index of the source it belongs to
constexpr int kFileRole = Qt::UserRole + 2;   // a capture's file, as `pathText`

QList<QStandardItem*> rowOf(const QString& name, const QStringList& more = {})
{
    QList<QStandardItem*> row{new QStandardItem(name)};
    for (const QString& text : more)
        row << new QStandardItem(text);
    for (QStandardItem* item : row)
        item->setEditable(false);
    return row;
}

/// What a file is called in the list: by itself where it was named itself, else within its source.
QString nameOf(const std::filesystem::path& file, const std::filesystem::path& source)
{
    return toQt(file == source ? file : file.lexically_relative(source));
}

QList<QStandardItem*> rowOf(const Capture& capture, const std::filesystem::path& source,
                            bool isCurrent)
{
    const QString stream = capture.transport_stream_id
                               ? QString::asprintf("%04X", *capture.transport_stream_id)
                               : QString("no PAT");
    auto row = rowOf(nameOf(capture.file, source), {stream, toQt(parametersText(capture.tuning)),
                                                    toQt(sizeText(capture.size)), ""});
    row[0]->setCheckable(true);
    row[0]->setCheckState(isCurrent ? Qt::Checked : Qt::Unchecked);
    row[0]->setData(toQt(pathText(capture.file)), kFileRole);
    return row;
}

template <class Visit>
void forEachItem(QStandardItem* parent, const Visit& visit)
{
    for (int i = 0; i < parent->rowCount(); ++i) {
        visit(parent->child(i));
        forEachItem(parent->child(i), visit);
    }
}

} // namespace

TuningDialog::TuningDialog(CaptureTuner& tuner, QWidget* owner)
    : QDialog(owner)
    , tuner_(tuner)
    , view_(new QTreeView(this))
    , addFiles_(new QPushButton("Add &files...", this))
    , addFolder_(new QPushButton("Add f&older...", this))
    , remove_(new QPushButton("&Remove", this))
    , bar_(new QProgressBar(this))
    , hint_(new QLabel(this))
    , buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle("Tuning");
    setAcceptDrops(true);
    const TunerState now = tuner.state();
    set_ = *now.set;
    if (now.capture())
        current_ = now.capture()->file;
    arrange();
    fill();

    connect(addFiles_, &QPushButton::clicked, this, &TuningDialog::addFiles);
    connect(addFolder_, &QPushButton::clicked, this, &TuningDialog::addFolder);
    connect(remove_, &QPushButton::clicked, this, &TuningDialog::removeSelected);
    connect(buttons_, &QDialogButtonBox::accepted, this, &TuningDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TuningDialog::enableRemove);
    connect(&model_, &QStandardItemModel::itemChanged, this, &TuningDialog::setCurrent);
    const auto* const erase =
        new QShortcut(QKeySequence::Delete, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(erase, &QShortcut::activated, this, &TuningDialog::removeSelected);
    const auto* const copy =
        new QShortcut(QKeySequence::Copy, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, &TuningDialog::copyAsText);
}

TuningDialog::~TuningDialog() = default;

void TuningDialog::arrange()
{
    view_->setModel(&model_);
    view_->setObjectName("captures");
    view_->setAccessibleName("Captures");
    view_->setAllColumnsShowFocus(true);
    view_->setUniformRowHeights(true);
    remove_->setObjectName("remove");
    buttons_->button(QDialogButtonBox::Ok)->setDefault(true);
    bar_->setAccessibleName("Progress of looking at captures");
    bar_->hide();

    hint_->setWordWrap(true);
    auto* const label = new QLabel("&Captures; the tuner is set to the one with the check mark:");
    label->setBuddy(view_);
    auto* const layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(view_, 1, 0, 4, 1);
    layout->addWidget(addFiles_, 1, 1);
    layout->addWidget(addFolder_, 2, 1);
    layout->addWidget(remove_, 3, 1);
    layout->addWidget(hint_, 5, 0);
    layout->addWidget(bar_, 5, 1);
    layout->addWidget(buttons_, 6, 0, 1, 2);
    layout->setRowStretch(4, 1);
    const QSize room = screen()->availableSize();
    resize(std::min(900, room.width() * 9 / 10), std::min(420, room.height() * 9 / 10));
}

void TuningDialog::fill()
{
    isFilling_ = true;
    model_.clear();
    model_.setHorizontalHeaderLabels({"Capture", "Stream", "Received at", "Size", "Problem"});
    const auto isCurrent = [this](const Capture& each) { return each.file == current_; };
    if (std::none_of(set_.captures.begin(), set_.captures.end(), isCurrent))
        current_ = set_.captures.empty() ? std::filesystem::path() : set_.captures.front().file;
    std::vector<QStandardItem*> folders(set_.sources.size());
    // A folder is a row above its captures, a file the row of its capture.
    const auto place = [&](const std::filesystem::path& file, std::size_t source,
                           QList<QStandardItem*> row) {
        row[0]->setData(static_cast<qulonglong>(source), kSourceRole);
        if (file == set_.sources[source]) {
            model_.appendRow(row);
            return;
        }
        if (!folders[source]) {
            auto head = rowOf(toQt(set_.sources[source]), {"", "", "", ""});
            folders[source] = head[0];
            head[0]->setData(static_cast<qulonglong>(source), kSourceRole);
            model_.appendRow(head);
        }
        folders[source]->appendRow(row);
    };
    for (const Capture& each : set_.captures)
        place(each.file, each.source, rowOf(each, set_.sources[each.source], isCurrent(each)));
    for (const CaptureProblem& each : set_.problems)
        place(each.file, each.source,
              rowOf(nameOf(each.file, set_.sources[each.source]), {"", "", "", toQt(each.text)}));
    view_->expandAll();
    for (int column = 0; column < model_.columnCount(); ++column)
        view_->resizeColumnToContents(column);
    hint_->setText(set_.sources.empty() ? "Add files or folders, or drop them here."
                                        : "A folder inside a folder is a satellite of that name.");
    if (model_.rowCount() > 0)
        view_->setCurrentIndex(model_.index(0, 0));
    enableRemove();
    isFilling_ = false;
}

/// What was added can be removed: a file, or a folder with all in it.
void TuningDialog::enableRemove()
{
    const QModelIndex selected = view_->currentIndex();
    remove_->setEnabled(selected.isValid() && !selected.parent().isValid() && !worker_.joinable());
}

/// Check marks exclude each other.
void TuningDialog::setCurrent(QStandardItem* changed)
{
    if (isFilling_)
        return;
    current_ = pathFromText(changed->data(kFileRole).toString().toStdString());
    isFilling_ = true;
    forEachItem(model_.invisibleRootItem(), [changed](QStandardItem* each) {
        if (each->isCheckable())
            each->setCheckState(each == changed ? Qt::Checked : Qt::Unchecked);
    });
    isFilling_ = false;
}

void TuningDialog::addFiles()
{
    addUrls(QFileDialog::getOpenFileUrls(
        this, "Add files", QUrl::fromLocalFile(QDir::homePath()),
        "Transport streams (*.ts *.m2ts *.mts *.m2t *.trp *.mpg *.mpeg);;All files (*)"));
}

void TuningDialog::addFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, "Add folder", QDir::homePath());
    if (!folder.isEmpty())
        addSources({toPath(folder)});
}

void TuningDialog::addUrls(const QList<QUrl>& urls)
{
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            files.push_back(toPath(url));
    addSources(files);
}

void TuningDialog::addSources(const std::vector<std::filesystem::path>& files)
{
    std::vector<std::filesystem::path> sources;
    for (const std::filesystem::path& file : files) {
        std::filesystem::path source = file.lexically_normal();
        if (source.has_relative_path() && !source.has_filename())
            source = source.parent_path(); // the same folder with and without a slash behind it
        if (std::find(set_.sources.begin(), set_.sources.end(), source) == set_.sources.end())
            sources.push_back(source);
    }
    if (sources.empty() || worker_.joinable())
        return;
    try {
        worker_ = std::jthread(
            [this, sources](const std::stop_token& stop) { openSources(sources, stop); });
    } catch (const std::system_error& e) {
        QMessageBox::warning(
            this, windowTitle(),
            QString("Nothing was added: no thread to do it on (%1).").arg(e.what()));
        return;
    }
    setBusy(true);
}

/// On the worker's thread.
void TuningDialog::openSources(const std::vector<std::filesystem::path>& sources,
                               const std::stop_token& stop)
{
    const auto progress = [this](std::size_t done, std::size_t total) {
        QMetaObject::invokeMethod(
            bar_,
            [this, done, total] {
                bar_->setMaximum(static_cast<int>(total));
                bar_->setValue(static_cast<int>(done));
            },
            Qt::QueuedConnection);
    };
    auto more = std::make_shared<CaptureSet>(
        openCaptures(sources, progress, [&stop] { return stop.stop_requested(); }));
    QMetaObject::invokeMethod(
        this, [this, more] { finish(std::move(*more)); }, Qt::QueuedConnection);
}

void TuningDialog::finish(CaptureSet more)
{
    worker_.join();
    setBusy(false);
    append(set_, std::move(more));
    fill();
    view_->setFocus();
}

void TuningDialog::setBusy(bool isBusy)
{
    for (QPushButton* button : {addFiles_, addFolder_, buttons_->button(QDialogButtonBox::Ok)})
        button->setEnabled(!isBusy);
    enableRemove();
    bar_->setVisible(isBusy);
    bar_->setRange(0, 0);
    if (isBusy)
        hint_->setText("Looking at the captures...");
}

void TuningDialog::removeSelected()
{
    if (!remove_->isEnabled())
        return;
    const QModelIndex selected = view_->currentIndex().siblingAtColumn(0);
    removeSource(set_, selected.data(kSourceRole).toULongLong());
    fill();
    view_->setFocus();
}

void TuningDialog::copyAsText() const
{
    QString text;
    forEachItem(model_.invisibleRootItem(), [&](const QStandardItem* each) {
        QStringList cells;
        for (int column = 0; column < model_.columnCount(); ++column)
            cells << each->index().siblingAtColumn(column).data().toString();
        text += cells.join('\t') + '\n';
    });
    QApplication::clipboard()->setText(text);
}

void TuningDialog::accept()
{
    if (worker_.joinable())
        return;
    try {
        tuner_.useAndStore(std::move(set_), current_);
    } catch (const SettingsError& e) {
        QMessageBox::warning(this, windowTitle(),
                             toQt(std::string("The choice holds for this run only: ") + e.what()));
    }
    QDialog::accept();
}

void TuningDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void TuningDialog::dropEvent(QDropEvent* event)
{
    addUrls(event->mimeData()->urls());
}

} // namespace tessaview
