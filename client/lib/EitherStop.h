// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stop_token>
#include <utility>

namespace lectern {

// A stop that is requested when one of two others is.
class EitherStop {
public:
    EitherStop(std::stop_token first, std::stop_token second)
        : mFirst(std::move(first), Forward{mSource}), mSecond(std::move(second), Forward{mSource}) {}

    std::stop_token token() const { return mSource.get_token(); }

private:
    struct Forward {
        std::stop_source& to;
        void operator()() const { to.request_stop(); }
    };

    std::stop_source mSource;
    std::stop_callback<Forward> mFirst;
    std::stop_callback<Forward> mSecond;
};

} // namespace lectern
