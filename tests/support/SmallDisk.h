#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN

/// Windows limits no file of one process, so nothing can be tried there.
class SmallDisk {
  public:
    static constexpr bool IsPossible = false;
    explicit SmallDisk(qint64) {}
};

#else

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file can grow past so many bytes: a write meets its end half way, as on a full disk.
class SmallDisk {
  public:
    static constexpr bool IsPossible = true;

    explicit SmallDisk(qint64 bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{static_cast<rlim_t>(bytes), before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

  private:
    rlimit before_{};
};

#endif
