#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <QAbstractScrollArea>

namespace tessaview {

/// The page "VALUE": bytes in rows of sixteen. It keeps a copy of what it shows.
class CHexView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit CHexView(QWidget* parent);

    void setBytes(std::span<const std::uint8_t> bytes);
    const std::vector<std::uint8_t>& bytes() const { return bytes_; }

    /// The row at the top.
    int firstRow() const;
    void copyAll() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;

private:
    int rowCount() const;
    int lineHeight() const;
    void updateRange();

    std::vector<std::uint8_t> bytes_;
    QAction* copyAll_;
};

} // namespace tessaview
