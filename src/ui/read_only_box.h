#pragma once

#include <QLineEdit>

namespace tessaview {

/// Makes a box that only shows something, and looks so.
inline void makeReadOnly(QLineEdit& box)
{
    box.setReadOnly(true);
    QPalette palette = box.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        palette.setBrush(group, QPalette::Base, palette.brush(group, QPalette::Window));
    box.setPalette(palette);
}

} // namespace tessaview
