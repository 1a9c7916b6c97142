// The boxes in which the tabs tell their user what is wrong.
#pragma once

#include <string_view>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API IMessageService {
  public:
    virtual ~IMessageService() = default;
    // Shows a modal box: flags 16 a stop sign, 48 an exclamation mark. Returns when the user has closed it.
    virtual void Show(std::string_view sText, int nFlags, std::string_view sTitle, int nHelpFile,
                      int nHelpContext) = 0;
};

}  // namespace NolSchedCtls::inline v1
