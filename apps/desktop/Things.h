#pragma once

#include <QWidget>
#include <memory>

#include "apps/tour/Hands.h"

namespace desktop {

/// A window as Qt's accessible tree tells it.
std::unique_ptr<tour::Thing> MakeThing(QWidget& window);

}  // namespace desktop
