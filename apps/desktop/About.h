#pragma once

#include <QWidget>
#include <string>

#include "adapters/qt/ErrorGuard.h"
#include "controls/Screen.h"

namespace desktop {

/// Gives the ground of the window a menu, by the right button, with «درباره برنامه», which F1 opens
/// too. `office` is the connection string. Screen and guard outlive the window.
void OfferAbout(QWidget& window, controls::Screen& screen, adapters::qt::ErrorGuard& guard,
                const std::string& office);

}  // namespace desktop
