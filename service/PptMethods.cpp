// SPDX-License-Identifier: Apache-2.0
// The category "/ppt": methods for presentations only.
#include "ppt/PPT.h"
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"

template<>
inline constexpr const char* WRONG_KIND<PPT> = "Not a PowerPoint document";

namespace {

constexpr char SLIDE_COUNT[] = "slidecnt";
constexpr char SLIDE_NUMBER[] = "slideNumber";

} // namespace

// clang-format off
const HubMethod pptMethods[] = {
    {"getSlideCount", method<PPT, Docid, ReplyNumber<SLIDE_COUNT, &PPT::slideCount>>, 0},
    {"jumpToSlide",   method<PPT, SlideNumber, ReplyNumber<SLIDE_NUMBER, &PPT::jumpToSlide>, Invalidate>, 0},
    {"fitWideMode",   method<PPT, Orientation, Call<&PPT::setFitWideMode>, ReplyDone>, 0},
    {"getSlideNote",  method<PPT, Docid, ReplyText<&PPT::getSlideNote>>, 0},
    {"getSlideList",  method<PPT, Docid, ReplyText<&PPT::getSlideList>>, 0},
    {nullptr, nullptr, 0},
};
// clang-format on
