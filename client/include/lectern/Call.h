// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <functional>
#include <string>
#include <type_traits>

namespace lectern {

// A call of one method of the service. Document::ask adds the document's number.
struct Request {
    std::string category;         // such as "/touch"
    std::string method;           // such as "scrollTo"
    std::string arguments = "{}"; // a JSON object in UTF-8, without "docid"
};

// The outcome of a call with a value, or of one without.
template<typename Value>
using Answer = std::conditional_t<std::is_void_v<Value>, Failure, Result<Value>>;

// A call whose reply has a value of this type, or none. The functions of the headers
// CommonCalls.h, WordCalls.h, ExcelCalls.h, PptCalls.h and TouchCalls.h return such
// calls; Document::ask makes them. A call belongs to no document and can be made again.
template<typename Value>
struct Call {
    Request request;
    // Reads the text of a reply that is no error. Any thread may call it.
    std::function<Answer<Value>(const std::string& reply)> read;
};

} // namespace lectern
