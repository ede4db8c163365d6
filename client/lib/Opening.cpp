// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Dispatcher.h"
#include "client/lib/EitherStop.h"
#include <lectern/Opening.h>

#include <thread>
#include <utility>

namespace lectern {

namespace {

class OpeningThread : public Opening {
public:
    OpeningThread(const Bus& bus, std::string path, OpenOptions options, OnOpened onOpened)
        : mDispatcher(std::make_shared<Dispatcher>(options.context)),
          mThread([this, bus, path = std::move(path), options = std::move(options),
                   onOpened = std::move(onOpened)](const std::stop_token& stop) mutable {
              run(bus, path, std::move(options), std::move(onOpened), stop);
          }) {}

    ~OpeningThread() override { mDispatcher->close(); }

private:
    void run(const Bus& bus, const std::string& path, OpenOptions options, OnOpened onOpened,
             const std::stop_token& stop) {
        // Requested by the caller's token and by this object's destruction.
        const EitherStop either(std::move(options.stop), stop);
        options.stop = either.token();
        if (options.onProgress) {
            // The document keeps its options longer than this object lives.
            options.onProgress = [loop = std::weak_ptr(mDispatcher),
                                  tell = std::move(options.onProgress)](auto elapsed) {
                if (const auto dispatcher = loop.lock()) {
                    dispatcher->post([tell, elapsed] { tell(elapsed); });
                }
            };
        }
        auto opened = std::make_shared<Result<std::unique_ptr<Document>>>(Document::open(bus, path, options));
        mDispatcher->post(
            [opened = std::move(opened), onOpened = std::move(onOpened)] { onOpened(std::move(*opened)); });
    }

    std::shared_ptr<Dispatcher> mDispatcher;
    std::jthread mThread; // last, because it uses the dispatcher
};

} // namespace

std::unique_ptr<Opening> Opening::start(const Bus& bus, const std::string& path, OpenOptions options,
                                        OnOpened onOpened) {
    return std::make_unique<OpeningThread>(bus, path, std::move(options), std::move(onOpened));
}

} // namespace lectern
