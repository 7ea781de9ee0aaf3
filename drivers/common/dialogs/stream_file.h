#pragma once

#include "drivers/common/dialogs/qt_text.h"
#include "drivers/common/disk_space.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <thread>

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace tessaview {

/// Names the file that a stream is written to, by typing or by choosing it.
class StreamFileField : public QWidget {
public:
    /// `showFree` is told what is free where the file is to be, "" where that is not known.
    StreamFileField(QWidget* parent, std::function<void(const QString&)> showFree)
        : QWidget(parent)
        , line_(new QLineEdit(this))
        , showFree_(std::move(showFree))
    {
        line_->setObjectName("destination");
        line_->setAccessibleName("File");
        line_->setPlaceholderText("the file to write");
        auto* const browse = new QPushButton("&Browse...", this);
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(line_);
        row->addWidget(browse);
        setFocusProxy(line_);
        connect(browse, &QPushButton::clicked, this, &StreamFileField::choose);
        connect(line_, &QLineEdit::editingFinished, this, &StreamFileField::lookForSpace);
    }

    ~StreamFileField() override { forget(); }

    /// Tells nothing any more. For the end of who is told: a line that loses the focus while its
    /// window is taken apart would tell once more.
    void forget()
    {
        line_->disconnect(this);
        showFree_ = [](const QString&) {};
    }

    bool isEmpty() const { return line_->text().isEmpty(); }
    std::filesystem::path file() const
    {
        return toPath(QDir::cleanPath(QDir::current().absoluteFilePath(line_->text())));
    }
    /// Asks whether the file, which is there already, may go.
    bool mayReplace()
    {
        QMessageBox box(QMessageBox::Question, window()->windowTitle(),
                        toQt(file()) + " is there already. Replace it?",
                        QMessageBox::Yes | QMessageBox::No, this);
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(QMessageBox::No);
        return box.exec() == QMessageBox::Yes;
    }

private:
    /// Whether an existing file may go is asked at the start, where it may also have been typed.
    void choose()
    {
        const QString chosen = QFileDialog::getSaveFileName(
            this, window()->windowTitle(), isEmpty() ? QDir::homePath() : line_->text(),
            "Transport streams (*.ts);;All files (*)", nullptr, QFileDialog::DontConfirmOverwrite);
        if (chosen.isEmpty())
            return;
        line_->setText(chosen);
        lookForSpace();
    }
    void lookForSpace()
    {
        QString free;
        try {
            if (!isEmpty())
                free = toQt(sizeText(freeSpace(file().parent_path())));
        } catch (const std::exception&) { // the start tells what is wrong
        }
        showFree_(free);
    }

    QLineEdit* line_;
    std::function<void(const QString&)> showFree_;
};

/// Runs a job, which must outlive the thread, and then `finish` with its result in the thread of
/// `context`. Throws std::system_error when there can be no thread.
template <class Job, class Finish>
std::jthread startJob(Job& job, QObject* context, Finish finish)
{
    return std::jthread([&job, context, finish](const std::stop_token& stop) {
        const auto result = std::make_shared<typename Job::Result>(job.run(stop));
        QMetaObject::invokeMethod(
            context, [finish, result] { finish(*result); }, Qt::QueuedConnection);
    });
}

} // namespace tessaview
