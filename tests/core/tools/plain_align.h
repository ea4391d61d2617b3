// The rules of alignment once more, as plainly as they can be written and without a thought for
// speed: what AlignSlashes must agree with on any text.
#pragma once

#include <string>
#include <string_view>

#include "tools/align_slashes.h"

namespace deck {

std::u16string PlainAlign(std::u16string_view text, const AlignOptions& options);

// Whether a line begins with blanks before "rem" or "~" and has a slash: then aligning the result
// again may change it once more.
bool HasIndentedCommentWithSlash(std::u16string_view text);

}  // namespace deck
