#pragma once

#include <unistd.h>

/// While it lives, the program is no administrator, whom no permissions bind.
class OrdinaryUser {
  public:
    OrdinaryUser() { real_ = seteuid(before_ == 0 ? 65534 : before_) == 0; }
    ~OrdinaryUser() { real_ = seteuid(before_) == 0; }
    bool IsReal() const { return real_; }

  private:
    uid_t before_ = geteuid();
    bool real_ = false;
};
