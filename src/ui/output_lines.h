#pragma once

#include "log/output.h"

#include <mutex>
#include <string_view>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

namespace tessaview {

/// The lines of the output window. Any thread may print; the lines arrive in the window's thread
/// in their order, before anything that the printing thread posts to it afterwards, and nobody
/// waits for anybody. While it lives it is the sink of `OutputPrint` and `OutputClear`.
class OutputLines : public QAbstractListModel, public OutputSink {
    Q_OBJECT

public:
    /// A longer line is cut.
    static constexpr int kMaxLine = 4095;

    explicit OutputLines(QObject* parent = nullptr);
    ~OutputLines() override;

    void print(std::string_view text) override;
    void clear() override;

    /// Shows what has been printed until now; the window's thread does so by itself.
    Q_INVOKABLE void takePending();

    QString text() const { return lines_.join(QLatin1Char('\n')); }
    const QString& line(int row) const { return lines_[row]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void takeSoon();

    QStringList lines_;

    std::mutex mutex_; // guards what follows
    QStringList pending_;
    bool clearsFirst_ = false;
    bool isTakingSoon_ = false;
};

} // namespace tessaview
