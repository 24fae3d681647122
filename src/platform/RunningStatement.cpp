#include "platform/RunningStatement.h"

#include <string>

#include "platform/ServerErrors.h"

namespace platform {

namespace {

constexpr const char* kWorking = "پايگاه داده سرگرم كار است…";

// Most actions of the user send several statements, each stored by itself: only the one that ran
// was cancelled.
constexpr const char* kBefore = " آنچه پيش از آن ثبت شده باشد سر جاي خود است.";

std::string Sentence(Cancelled left) {
  const std::string stopped = "كار پايگاه داده به خواست شما متوقف شد";
  switch (left) {
    case Cancelled::kTakenBack:
      return stopped + " و از آن چيزي ثبت نشد." + kBefore;
    case Cancelled::kPerhapsStored:
      return stopped +
             "، ولي شايد پيش از آن چيزي ثبت شده باشد: پيش از آنكه آن را تكرار كنيد، برنامه "
             "بازارياب را از نو باز كنيد و نگاه كنيد.";
    case Cancelled::kReading:
      break;
  }
  return stopped + "." + kBefore;
}

}  // namespace

RunningStatement::RunningStatement(Progress* progress) : progress_(progress) {
  if (progress_ == nullptr) return;
  if (progress_->UnderWay()) {
    throw RuntimeError(kStillExecuting,
                       Described("پايگاه داده سرگرم كار ديگري است؛ تا پايان آن صبر كنيد.",
                                 "Operation cannot be performed while another statement runs."));
  }
  progress_->Begin(kWorking, 0);
}

RuntimeError CancelledError(Cancelled left, const std::string& words, const std::string& source) {
  return {kUserInterrupt, Described(Sentence(left), words), source};
}

}  // namespace platform
