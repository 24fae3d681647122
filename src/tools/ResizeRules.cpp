#include "tools/ResizeRules.h"

#include "host/modMain.h"

namespace tools {

void ResizeRules::Start(controls::Twips width, controls::Twips height) {
  width_ = width;
  height_ = height;
}

void ResizeRules::Apply(controls::Twips width, controls::Twips height) {
  if (width < lowestWidth_ || height < lowestHeight_) return;
  const controls::Twips dW = width - width_;
  const controls::Twips dH = height - height_;
  for (const Rule& rule : rules_) {
    host::ShiftControl(*rule.control, dW * rule.shares.width, dW * rule.shares.left,
                       dH * rule.shares.height, dH * rule.shares.top);
  }
  Start(width, height);
}

}  // namespace tools
