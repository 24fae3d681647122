#pragma once

#include <QColor>
#include <QDialog>
#include <QString>

#include "screens/Question.h"

namespace adapters::qt {

/// The suite's message window: information with one button, a question with yes and no, or an
/// error. Modal to the whole program, in the middle of
/// the window that was active.
class MessageDialog : public QDialog {
 public:
  using Kind = screens::MessageKind;
  struct Content {
    QString title;
    QString message;
    /// Left-to-right text in a box of its own, which can be copied; empty for none.
    QString technical;
    Kind kind = Kind::kInformation;
    QColor formGround;  // the three grounds: invalid colours leave the theme's
    QColor buttonGround;
    QColor frameGround;
  };
  explicit MessageDialog(const Content& content);

  /// Shows it and waits. The single button of an information answers yes.
  screens::Answer Run();

 private:
  screens::Answer answer_ = screens::Answer::kNo;
};

}  // namespace adapters::qt
