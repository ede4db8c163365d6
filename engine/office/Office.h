// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// The office suite inside this process. Create at most one per process.
//
// The suite has one thread: the one that calls run(). It may be used only there, in
// the turns that run() takes, so a process can be forked in a turn.
class Office {
public:
    // The program's part of the suite's main loop.
    class Turn {
    public:
        virtual ~Turn() = default;
        // Called whenever the suite has nothing to do. Waits for the program's events
        // and handles them; returns when some are handled, after `longest`, or after
        // wake().
        virtual void take(std::chrono::microseconds longest) = 0;
        // Ends a wait. Called by other threads.
        virtual void wake() = 0;
    };
    // The `longest` of a turn while the suite waits for nothing.
    static constexpr auto FOREVER = std::chrono::microseconds::max();
    // Timers of the suite that are at least so far away look after its caches, the layout
    // of visible windows and the like, again and again. A process at rest does not wait
    // for them; those that are over run before its next turn.
    static constexpr std::chrono::microseconds FAR_TIMER = std::chrono::milliseconds(100);

    // Initialises the suite with its own profile in `profileDirectory`, an
    // absolute path that is created when missing. Returns null on failure and
    // writes the reason to standard error.
    static std::unique_ptr<Office> start(const std::string& profileDirectory);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    // Runs the suite's main loop in this thread, until the process ends.
    [[noreturn]] void run(Turn& turn);
    // Does `work` in a turn of the main loop, and ends the process with its result.
    [[noreturn]] void runAndExit(const std::function<int()>& work);

    // Makes later opens in this process and in forks of it faster, by a step that
    // takes up to 0.2 s: the code for one kind of documents is loaded and used.
    // Returns false when nothing is left to prepare.
    bool prepareNext();

    // Makes the suite write its temporary files, and the fonts of documents, to another
    // folder, which exists. Returns false when it cannot.
    [[nodiscard]] bool useTemporaryFolder(const std::string& folder);

    // The files and folders that the suite reads while it opens and paints a document,
    // besides the system's libraries.
    std::vector<std::string> readPaths() const;

    // The implementation's data, defined for this folder only.
    struct Private;
    Private& d() { return *mPrivate; }

private:
    explicit Office(std::unique_ptr<Private> d);
    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
