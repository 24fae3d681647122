// Where the windows of our own have their controls, in pixels.

#include <gtest/gtest.h>

#include <sstream>

#include "report/Pieces.h"
#include "report/Typewriter.h"
#include "screens/DocumentForm.h"
#include "screens/MessageForm.h"
#include "screens/PreviewForm.h"
#include "screens/ProgressForm.h"
#include "screens/ScriptedHost.h"
#include "support/AllControls.h"
#include "support/Approved.h"
#include "support/FakeProgress.h"
#include "support/FakeScreen.h"

namespace screens {
namespace {

std::string LayoutOf(const controls::Form& form) {
  std::ostringstream out;
  const Scale scale(96);
  out << "== " << form.Name() << ' ' << form.Caption() << ", " << scale.Pixels(form.Width())
      << " x " << scale.Pixels(form.Height()) << '\n';
  for (controls::Control* control : support::AllControls(form)) {
    out << control->Name() << ' '
        << Rect{scale.Pixels(control->Left()), scale.Pixels(control->Top()),
                scale.Pixels(control->Left() + control->Width()),
                scale.Pixels(control->Top() + control->Height())};
    const auto* label = dynamic_cast<const controls::Label*>(control);
    if (label != nullptr) out << " look " << static_cast<int>(label->GetLook());
    if (control->TabIndex() >= 0) out << " tab " << control->TabIndex();
    if (control == form.FirstFocus()) out << ", first";
    if (!control->AccessKey().empty()) out << ", key " << control->AccessKey();
    if (!control->Visible()) out << ", hidden";
    if (label != nullptr) out << ": " << label->Caption();
    out << '\n';
  }
  return out.str();
}

TEST(FormLayouts, EachWindowOfOurOwn_IsAsApproved) {
  support::Events events;
  support::FakeScreen screen(events);
  std::string words;
  for (int word = 0; word < 400; ++word) words += "word ";
  std::string all;
  for (const Message& message :
       {Message{"پرسش", "برود؟", "", MessageKind::kQuestion},
        {"خطا", "فايل «/tmp/a.txt» باز نشد.\n" + words.substr(0, 120), words, MessageKind::kError},
        {"پيام", "شد.", "", MessageKind::kInformation}}) {
    all += LayoutOf(MessageForm(screen, message));
  }
  all += LayoutOf(ProgressForm(screen, [] { return std::chrono::milliseconds(0); }));
  AccountingDocument document;
  document.lines.resize(40);
  DocumentForm lines(screen, document);
  all += LayoutOf(lines);
  for (const auto& [width, height] :
       {std::pair(lines.MinWidth(), lines.MinHeight()), {24000.0, 12000.0}, {0.0, 0.0}}) {
    lines.Resize(width, height);
    all += LayoutOf(lines);
  }
  report::FilledReport filled;
  filled.title = "فروش";
  filled.body = std::make_unique<report::Pieces>("<p>a</p>", 0, 100);
  const report::Typewriter letters;
  report::Pages pages(std::move(filled), letters);
  support::FakeProgress progress;
  PreviewForm preview(screen, progress, pages, {});
  all += LayoutOf(preview);
  preview.Resize(preview.MinWidth(), preview.MinHeight());
  all += LayoutOf(preview);
  support::ExpectApproved("tests/screens/approved/forms.txt", all);
}

}  // namespace
}  // namespace screens
