#pragma once

#include "adapters/windows/Com.h"
#include "adapters/windows/ErrorGuard.h"

namespace adapters::windows {

/// Makes an object that stands in for the suite's message component "comNotice.comNTC" where the
/// suite is not installed. Its members: FormTitle, FormMessage, FormType (0 information, 1 a
/// question), FormBackColor, BtmBackColor and FrameBackColor are put; ClearShow shows the message
/// and waits; Resualt then tells the answer (1 yes, 0 no or closed). `guard` outlives the object.
ComPtr<IDispatch> MakeMessageComponent(ErrorGuard& guard);

}  // namespace adapters::windows
