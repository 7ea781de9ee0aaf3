#include "ui/output_lines.h"

#include "ui/text.h"

#include <utility>

#include <QThread>

namespace tessaview {

namespace {

/// One line of the list, whatever the text holds.
QString asLine(std::string_view text)
{
    QString line = toQString(text);
    for (QChar& c : line) {
        if (c.category() == QChar::Other_Control)
            c = QLatin1Char(' ');
    }
    if (line.size() > OutputLines::kMaxLine) {
        line.truncate(OutputLines::kMaxLine);
        if (line.back().isHighSurrogate())
            line.chop(1);
    }
    return line;
}

} // namespace

OutputLines::OutputLines(QObject* parent) : QAbstractListModel(parent)
{
    installOutputSink(this);
}

OutputLines::~OutputLines()
{
    // Nobody who prints waits for this thread, so waiting for them ends.
    installOutputSink(nullptr);
}

void OutputLines::print(std::string_view text)
{
    QString line = asLine(text);
    const std::lock_guard lock(mutex_);
    pending_.append(std::move(line));
    takeSoon();
}

void OutputLines::clear()
{
    const std::lock_guard lock(mutex_);
    pending_.clear();
    clearsFirst_ = true;
    takeSoon();
}

/// Posts one call for all that is pending when it is delivered.
void OutputLines::takeSoon()
{
    if (!std::exchange(isTakingSoon_, true))
        QMetaObject::invokeMethod(this, "takePending", Qt::QueuedConnection);
}

void OutputLines::takePending()
{
    QStringList lines;
    bool clearsFirst = false;
    {
        const std::lock_guard lock(mutex_);
        lines.swap(pending_);
        clearsFirst = std::exchange(clearsFirst_, false);
        isTakingSoon_ = false;
    }
    if (clearsFirst) {
        beginResetModel();
        lines_ = std::move(lines);
        endResetModel();
    } else if (!lines.isEmpty()) {
        const auto first = static_cast<int>(lines_.size());
        beginInsertRows({}, first, first + static_cast<int>(lines.size()) - 1);
        lines_.append(std::move(lines));
        endInsertRows();
    }
}

int OutputLines::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant OutputLines::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return lines_[index.row()];
}

} // namespace tessaview
