#pragma once

#include "component/bstr.h"
#include "component/status.h"

#include <string>

namespace tessaview {

/// Makes a call that hands a text over, `Status call(char16_t** out)`. After a failure `utf8` stays
/// as it is, and so does whatever the call left in its output: it hands nothing over then.
template <class Call>
Status receivedText(std::string& utf8, Call call)
{
    Bstr text;
    const Status result = call(text.put());
    if (failed(result))
        static_cast<void>(text.release());
    else
        utf8 = text.utf8();
    return result;
}

} // namespace tessaview
