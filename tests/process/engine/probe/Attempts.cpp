// SPDX-License-Identifier: Apache-2.0
#include "base/FileDescriptor.h"
#include "tests/process/engine/probe/Probe.h"

#include <fcntl.h>
#include <linux/bpf.h>
#include <linux/perf_event.h>
#include <poll.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/ipc.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/msg.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <thread>
#include <vector>

namespace lectern::test {
namespace {

// Each attempt gets its detail and returns a negative number on failure, with errno set.
using Attempt = std::function<long(const std::string&)>;

int number(const std::string& detail) {
    return std::atoi(detail.c_str());
}

int reading(const std::string& path) {
    return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

long closing(int file) {
    const FileDescriptor opened(file);
    return file;
}

// What can be done with a file that may be read.
Attempt with(const std::function<long(int)>& use) {
    return [use](const std::string& path) {
        const FileDescriptor file(reading(path));
        return file ? use(file.get()) : -1;
    };
}

long controlDocument(const std::string& path, int command, long argument) {
    return with([=](int file) { return fcntl(file, command, argument); })(path);
}

std::string ownFolder() {
    return std::getenv("TMPDIR");
}

long symbolicLink(const std::string& path) {
    return symlink(path.c_str(), (ownFolder() + "/link").c_str());
}

long hardLink(const std::string& path) {
    return link(path.c_str(), (ownFolder() + "/hard").c_str());
}

long create(const std::string& path) {
    const long result = closing(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    if (result >= 0) {
        unlink(path.c_str());
    }
    return result;
}

long newProcess(unsigned long flags) {
    const long child = syscall(SYS_clone, flags | SIGCHLD, nullptr, nullptr, nullptr, nullptr);
    if (child == 0) {
        _exit(0);
    }
    if (child > 0) {
        waitpid(static_cast<pid_t>(child), nullptr, 0);
    }
    return child;
}

long execute(const std::string& path) {
    char* const none[] = {nullptr};
    return execve(path.c_str(), none, none);
}

long datagramTo(const std::string& path) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends) != 0) {
        return -1;
    }
    const FileDescriptor own(ends[0]);
    const FileDescriptor other(ends[1]);
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return sendto(own.get(), "x", 1, MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&address), sizeof address);
}

long readMemoryOf(const std::string& process) {
    char byte = 0;
    iovec local{&byte, 1};
    iovec remote{reinterpret_cast<void*>(0x10000), 1};
    return process_vm_readv(number(process), &local, 1, &remote, 1, 0);
}

long traceProcess(const std::string& process) {
    const long result = ptrace(PTRACE_ATTACH, number(process), nullptr, nullptr);
    if (result == 0) {
        ptrace(PTRACE_DETACH, number(process), nullptr, nullptr);
    }
    return result;
}

long pinProcess(const std::string& process) {
    cpu_set_t all;
    const pid_t pid = number(process);
    return sched_getaffinity(pid, sizeof all, &all) == 0 ? sched_setaffinity(pid, sizeof all, &all) : -1;
}

long limitProcess(const std::string& process) {
    rlimit limit{};
    return prlimit(number(process), RLIMIT_CORE, nullptr, &limit);
}

long openTerminal(const std::string&) {
    return closing(open("/dev/tty", O_RDWR | O_CLOEXEC));
}

long pushToTerminal(const std::string&) {
    char key = 'x';
    return ioctl(STDOUT_FILENO, TIOCSTI, &key);
}

long startThread(const std::string&) {
    std::thread([] {}).join();
    return 0;
}

long sharedMapping(const std::string&) {
    void* memory = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? -1 : munmap(memory, 4096);
}

long setModifiedNow(const std::string& path) {
    return utimensat(AT_FDCWD, path.c_str(), nullptr, 0);
}

long call(long number, long first = 0, long second = 0, long third = 0) {
    return syscall(number, first, second, third, 0, 0);
}

// Mebibytes that one file can have.
long fileSize(const std::string& path) {
    const FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    long mebibytes = 0;
    while (file && mebibytes < 2048 && ftruncate(file.get(), (mebibytes + 16) << 20) == 0) {
        mebibytes += 16;
    }
    unlink(path.c_str());
    return mebibytes;
}

long descriptorNumbers(const std::string&) {
    std::vector<FileDescriptor> files;
    int last = 0;
    while (last < 4096) {
        FileDescriptor file(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0));
        if (!file) {
            break;
        }
        last = file.get() + 1;
        files.push_back(std::move(file));
    }
    return last;
}

// Mebibytes of memory of its own.
long dataMemory(const std::string&) {
    constexpr std::size_t BITE = std::size_t{64} << 20;
    std::vector<void*> eaten;
    while (eaten.size() < 64) {
        void* memory = mmap(nullptr, BITE, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            break;
        }
        eaten.push_back(memory);
    }
    for (void* memory : eaten) {
        munmap(memory, BITE);
    }
    return static_cast<long>(eaten.size() * (BITE >> 20));
}

const std::map<std::string, Attempt>& attempts() {
    static const std::map<std::string, Attempt> all = {
        {"read", [](const std::string& path) { return closing(reading(path)); }},
        {"list", [](const std::string& path) { return closing(open(path.c_str(), O_RDONLY | O_DIRECTORY)); }},
        {"symlink", symbolicLink},
        {"link", hardLink},
        {"closed-folder", [](const std::string& path) { return mkdir(path.c_str(), 0); }},
        {"write", [](const std::string& path) { return closing(open(path.c_str(), O_WRONLY | O_CLOEXEC)); }},
        {"create", create},
        {"truncate", [](const std::string& path) { return truncate(path.c_str(), 1); }},
        {"chmod", [](const std::string& path) { return chmod(path.c_str(), 0644); }},
        {"fchmod", with([](int file) { return fchmod(file, 0644); })},
        {"chown", [](const std::string& path) { return chown(path.c_str(), getuid(), getgid()); }},
        {"utimensat", setModifiedNow},
        {"setxattr", [](const std::string& path) { return setxattr(path.c_str(), "user.x", "x", 1, 0); }},
        {"flock", with([](int file) { return flock(file, LOCK_SH | LOCK_NB); })},
        {"lease", [](const std::string& path) { return controlDocument(path, F_SETLEASE, F_RDLCK); }},
        {"owner", [](const std::string& path) { return controlDocument(path, F_SETOWN, getppid()); }},
        {"signal-number", [](const std::string& path) { return controlDocument(path, F_SETSIG, SIGKILL); }},
        {"notify", with([](int file) { return fcntl(file, F_NOTIFY, DN_ACCESS); })},
        {"inotify", [](const std::string&) { return closing(inotify_init1(IN_CLOEXEC)); }},
        {"handle", [](const std::string&) { return call(SYS_open_by_handle_at, AT_FDCWD); }},
        {"kill", [](const std::string& pid) { return kill(number(pid), 0); }},
        {"tgkill", [](const std::string& pid) { return call(SYS_tgkill, number(pid), number(pid)); }},
        {"pidfd",
         [](const std::string& pid) { return closing(static_cast<int>(call(SYS_pidfd_open, number(pid)))); }},
        {"queue-signal", [](const std::string& pid) { return call(SYS_rt_sigqueueinfo, number(pid)); }},
        {"trace", traceProcess},
        {"read-memory", readMemoryOf},
        {"priority",
         [](const std::string& pid) { return setpriority(PRIO_PROCESS, static_cast<id_t>(number(pid)), 0); }},
        {"affinity", pinProcess},
        {"limits", limitProcess},
        {"socket",
         [](const std::string& family) {
             return closing(socket(number(family), SOCK_STREAM | SOCK_CLOEXEC, 0));
         }},
        {"datagram", datagramTo},
        {"queue", [](const std::string&) { return msgget(IPC_PRIVATE, 0600); }},
        {"segment", [](const std::string&) { return shmget(IPC_PRIVATE, 4096, 0600); }},
        {"semaphore", [](const std::string&) { return semget(IPC_PRIVATE, 1, 0600); }},
        {"posix-queue",
         [](const std::string&) {
             return call(SYS_mq_open, reinterpret_cast<long>("lectern-probe"), O_CREAT, 0600);
         }},
        {"key", [](const std::string&) { return call(SYS_keyctl); }},
        {"fork", [](const std::string&) { return newProcess(0); }},
        {"exec", execute},
        {"new-user", [](const std::string&) { return newProcess(CLONE_NEWUSER); }},
        {"unshare", [](const std::string&) { return unshare(CLONE_NEWUSER); }},
        {"setns", with([](int file) { return setns(file, 0); })},
        {"mount", [](const std::string& path) { return mount("none", path.c_str(), "tmpfs", 0, nullptr); }},
        {"chroot", [](const std::string& path) { return chroot(path.c_str()); }},
        {"bpf", [](const std::string&) { return call(SYS_bpf); }},
        {"perf", [](const std::string&) { return call(SYS_perf_event_open); }},
        {"io_uring", [](const std::string&) { return call(SYS_io_uring_setup); }},
        {"userfaultfd", [](const std::string&) { return closing(static_cast<int>(call(SYS_userfaultfd))); }},
        {"personality", [](const std::string&) { return call(SYS_personality, 0xFFFFFFFF); }},
        {"module", [](const std::string&) { return call(SYS_init_module); }},
        {"terminal", openTerminal},
        {"keystroke", pushToTerminal},
        {"thread", startThread},
        {"session", [](const std::string&) { return setsid(); }},
        {"memfd", [](const std::string&) { return closing(memfd_create("probe", MFD_CLOEXEC)); }},
        {"shared-mapping", sharedMapping},
        {"dumpable", [](const std::string&) { return prctl(PR_SET_DUMPABLE, 1); }},
    };
    return all;
}

const std::map<std::string, Attempt>& counts() {
    static const std::map<std::string, Attempt> all = {
        {"file-size", fileSize},
        {"descriptors", descriptorNumbers},
        {"data", dataMemory},
    };
    return all;
}

} // namespace

std::string outcomeOf(const std::string& name, const std::string& text) {
    const std::string detail =
        text.rfind(OWN_FOLDER, 0) == 0 ? ownFolder() + text.substr(std::strlen(OWN_FOLDER)) : text;
    if (const auto count = counts().find(name); count != counts().end()) {
        return std::to_string(count->second(detail));
    }
    const auto attempt = attempts().find(name);
    if (attempt == attempts().end()) {
        return "unknown";
    }
    errno = 0;
    return attempt->second(detail) >= 0 ? "allowed" : strerrorname_np(errno);
}

} // namespace lectern::test
