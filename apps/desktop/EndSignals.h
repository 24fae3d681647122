#pragma once

#include <QObject>

class QSocketNotifier;

namespace desktop {

/// Ends the application in order when the system asks it to (SIGTERM, SIGHUP) or the terminal does
/// (SIGINT): as soon as control is back in an event loop, so that a statement under way is done and
/// its rows are stored. A question that is up is answered with no. One at a time.
class EndSignals : public QObject {
 public:
  EndSignals();
  ~EndSignals() override;

 private:
  QSocketNotifier* notifier_;
};

}  // namespace desktop
