#include "soak/OwnRights.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace broomtide::soak {

namespace {

constexpr std::array<__u32, 2> overriding{CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH};

}  // namespace

void giveUpOverridingPermissions() {
  __user_cap_header_struct header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
  std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> rights{};
  const bool isKnown = ::syscall(SYS_capget, &header, rights.data()) == 0;
  for (const __u32 right : overriding) {
    rights[CAP_TO_INDEX(right)].effective &= ~(__u32{1} << (right % 32));
  }
  if (!isKnown || ::syscall(SYS_capset, &header, rights.data()) != 0) {
    throw std::system_error(errno, std::generic_category(),
                            "the rights of root cannot be given up");
  }
}

}  // namespace broomtide::soak
