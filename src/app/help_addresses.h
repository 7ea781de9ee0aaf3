#pragma once

#include "ui/main_frame.h"

namespace tessaview {

/// Where the commands of the Help menu lead. The maker's addresses stand here and nowhere else.
inline HelpAddresses helpAddresses(int buildNumber)
{
    return {.homePage = "https://tessaview.example/",
            .email = "mailto:author@tessaview.example",
            .updates = "https://tessaview.example/update",
            .buildNumber = buildNumber};
}

} // namespace tessaview
