// SPDX-License-Identifier: Apache-2.0
// The category "/common": methods for documents of every kind.
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"

// clang-format off
const HubMethod commonMethods[] = {
    {"getDocProperties", method<OfficeBase, Docid, ReplyText<&OfficeBase::getDocProperties>>, 0},
    {"Search",           method<OfficeBase, SearchText, ReplyText<&OfficeBase::doSearch>, Invalidate>, 0},
    {"nextResult",       method<OfficeBase, Docid, CallLocked<&OfficeBase::nextResult>, Invalidate, ReplyDone>, 0},
    {"previousResult",   method<OfficeBase, Docid, CallLocked<&OfficeBase::previousResult>, Invalidate, ReplyDone>, 0},
    {"closeSearch",      method<OfficeBase, Docid, Call<&OfficeBase::stopFind>, Invalidate, ReplyDone>, 0},
    {"clearSelection",   method<OfficeBase, Docid, Call<&OfficeBase::clearSelection>, Invalidate, ReplyDone>, 0},
    {"getMimeInfo",      method<OfficeBase, Docid, ReplyText<&OfficeBase::getMimeInfo>>, 0},
    {nullptr, nullptr, 0},
};
// clang-format on
