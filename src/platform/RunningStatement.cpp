#include "platform/RunningStatement.h"

#include <string>

#include "platform/ServerErrors.h"

namespace platform {

namespace {

constexpr const char* kWorking = "پايگاه داده سرگرم كار است…";

std::string Sentence(Cancelled left) {
  const std::string stopped = "كار پايگاه داده به خواست شما متوقف شد";
  switch (left) {
    case Cancelled::kTakenBack:
      return stopped + " و چيزي ثبت نشد.";
    case Cancelled::kPerhapsStored:
      return stopped +
             "، ولي شايد پيش از آن چيزي ثبت شده باشد: پيش از آنكه آن را تكرار كنيد، برنامه "
             "بازارياب را از نو باز كنيد و نگاه كنيد.";
    case Cancelled::kReading:
      break;
  }
  return stopped + ".";
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
