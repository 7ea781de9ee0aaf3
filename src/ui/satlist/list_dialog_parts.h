#pragma once

#include "component/bstr.h"
#include "component/status.h"

#include <functional>
#include <vector>

#include <QPushButton>
#include <QString>
#include <QStringList>

class QListWidget;

namespace tessaview {

// What the two dialogs of the satellite list share.

Bstr toBstr(const QString& text);

/// Names a control after its identifier.
void identify(QWidget* control, int id);

/// The ids of the buttons that end either dialog.
constexpr int kOk = 1;
constexpr int kCancel = 2;

/// A button that is not pressed by Enter in another control.
QPushButton* button(const QString& text, int id, QWidget* parent);

/// A list of which several items can be selected.
QListWidget* itemList(int id, QWidget* parent);
QStringList selectedTexts(const QListWidget& list);
/// Replaces the items and leaves the current one at its place in the list.
void refill(QListWidget& list, const QStringList& texts);

/// Calls `act` for one of the keys while the control has the focus.
void onKeys(QWidget* control, std::vector<int> keys, std::function<void()> act);

/// Tells about a failed call, with its status.
void complain(QWidget* parent, const QString& text, Status status);

} // namespace tessaview
