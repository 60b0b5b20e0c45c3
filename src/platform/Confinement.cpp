#include "platform/Confinement.h"

#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <linux/landlock.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/FileManager.h"

namespace broomtide::Confinement {
namespace {

// Known since versions 2 and 3 of the interface, the last one not to every set of headers.
constexpr std::uint64_t moveBetweenFolders = LANDLOCK_ACCESS_FS_REFER;
constexpr std::uint64_t truncateFile = std::uint64_t{1} << 14U;

// Later ways to change modes and attributes, by the numbers that they have on every common system.
constexpr int changeModeAt = 452, setAttributeAt = 463, removeAttributeAt = 466, setFileFlags = 469;

constexpr std::uint64_t change = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                 LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                 LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                                 LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                 LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

std::uint64_t changesKnownTo(long version) {
  std::uint64_t rights = change;
  if (version >= 2) rights |= moveBetweenFolders;
  if (version >= 3) rights |= truncateFile;
  return rights;
}

bool isScript(const std::string& program) {
  const FileDescriptor file(::open(program.c_str(), O_RDONLY | O_CLOEXEC));
  std::array<char, 2> start{};
  return file.isOpen() && ::read(file.get(), start.data(), start.size()) == 2 &&
         std::string_view(start.data(), start.size()) == "#!";
}

template <typename Value>
bool readAt(const FileDescriptor& file, std::uint64_t offset, Value& value) {
  const ssize_t count = ::pread(file.get(), &value, sizeof value, static_cast<off_t>(offset));
  return count == static_cast<ssize_t>(sizeof value);
}

// The loader of a program that needs libraries, as its file names it; empty for any other.
std::string loaderOf(const std::string& program) {
  const FileDescriptor file(::open(program.c_str(), O_RDONLY | O_CLOEXEC));
  ElfW(Ehdr) header;
  if (!readAt(file, 0, header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return {};
  for (std::uint64_t index = 0; index < header.e_phnum; ++index) {
    ElfW(Phdr) segment;
    if (!readAt(file, header.e_phoff + index * header.e_phentsize, segment)) return {};
    if (segment.p_type != PT_INTERP) continue;
    std::array<char, PATH_MAX> path{};
    const std::size_t length = std::min<std::size_t>(segment.p_filesz, path.size() - 1);
    const ssize_t count =
        ::pread(file.get(), path.data(), length, static_cast<off_t>(segment.p_offset));
    return count > 0 ? path.data() : std::string();
  }
  return {};
}

// Rules about the files that processes may open or change.
class FileRules {
 public:
  explicit FileRules(std::uint64_t forbidden) {
    const landlock_ruleset_attr attributes{.handled_access_fs = forbidden};
    rules_ = FileDescriptor(static_cast<int>(
        ::syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0)));
  }

  void allow(std::uint64_t rights, const std::string& path) const {
    const FileDescriptor file(::open(path.c_str(), O_PATH | O_CLOEXEC));
    if (!file.isOpen()) return;
    const landlock_path_beneath_attr beneath{.allowed_access = rights, .parent_fd = file.get()};
    ::syscall(SYS_landlock_add_rule, rules_.get(), LANDLOCK_RULE_PATH_BENEATH, &beneath, 0);
  }

  bool enforce() const {
    return rules_.isOpen() && ::syscall(SYS_landlock_restrict_self, rules_.get(), 0) == 0;
  }

 private:
  FileDescriptor rules_;
};

// Whether files are safe from now on.
bool confineFiles(const std::string& program) {
  const long version =
      ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version < 1) return false;
  const bool mayRunOthers = isScript(program);
  const FileRules rules(changesKnownTo(version) |
                        (mayRunOthers ? 0 : std::uint64_t{LANDLOCK_ACCESS_FS_EXECUTE}));
  rules.allow(LANDLOCK_ACCESS_FS_WRITE_FILE, "/dev/null");  // many programs open it for both
  if (!mayRunOthers) {
    for (const std::string& path : {program, loaderOf(program)}) {
      rules.allow(LANDLOCK_ACCESS_FS_EXECUTE, path);
    }
  }
  return rules.enforce();
}

bool forbid(scmp_filter_ctx filter, int call, const std::vector<scmp_arg_cmp>& arguments = {}) {
  return ::seccomp_rule_add_array(filter, SCMP_ACT_ERRNO(EPERM), call,
                                  static_cast<unsigned int>(arguments.size()),
                                  arguments.data()) == 0;
}

// What rules about files would. A lock that can be made, but not be removed again, would stay.
bool forbidCreating(scmp_filter_ctx filter) {
  for (const std::uint64_t flag : {std::uint64_t{O_CREAT}, std::uint64_t{O_TRUNC}}) {
    if (!forbid(filter, SCMP_SYS(open), {{1, SCMP_CMP_MASKED_EQ, flag, flag}}) ||
        !forbid(filter, SCMP_SYS(openat), {{2, SCMP_CMP_MASKED_EQ, flag, flag}})) {
      return false;
    }
  }
  return forbid(filter, SCMP_SYS(creat)) && forbid(filter, SCMP_SYS(openat2));
}

// What no rule about files covers, and without such rules also creating files.
void confineSystem(bool areFilesSafe) {
  const std::unique_ptr<void, void (*)(scmp_filter_ctx)> filter(::seccomp_init(SCMP_ACT_ALLOW),
                                                                ::seccomp_release);
  if (!filter) return;
  const std::initializer_list<int> forbidden{
      // networks
      SCMP_SYS(socket), SCMP_SYS(connect), SCMP_SYS(bind), SCMP_SYS(listen), SCMP_SYS(sendto),
      // modes, owners, attributes
      SCMP_SYS(chmod), SCMP_SYS(fchmod), SCMP_SYS(fchmodat), SCMP_SYS(chown), SCMP_SYS(fchown),
      SCMP_SYS(lchown), SCMP_SYS(fchownat), SCMP_SYS(setxattr), SCMP_SYS(lsetxattr),
      SCMP_SYS(fsetxattr), SCMP_SYS(removexattr), SCMP_SYS(lremovexattr), SCMP_SYS(fremovexattr),
      changeModeAt, setAttributeAt, removeAttributeAt, setFileFlags,
      // lengths, and names of files, where rules about files do not know them
      SCMP_SYS(truncate), SCMP_SYS(rename), SCMP_SYS(renameat), SCMP_SYS(renameat2), SCMP_SYS(link),
      SCMP_SYS(linkat), SCMP_SYS(symlink), SCMP_SYS(symlinkat), SCMP_SYS(unlink),
      SCMP_SYS(unlinkat), SCMP_SYS(rmdir), SCMP_SYS(mkdir), SCMP_SYS(mkdirat), SCMP_SYS(mknod),
      SCMP_SYS(mknodat),
      // ways around a filter of system calls
      SCMP_SYS(io_uring_setup), SCMP_SYS(ptrace), SCMP_SYS(process_vm_writev)};
  for (const int call : forbidden) {
    if (!forbid(filter.get(), call)) return;
  }
  if (!areFilesSafe && !forbidCreating(filter.get())) return;
  // Dates stay as they are although a program is told that they have changed: Git writes an object
  // anew whose date it cannot change, and fails.
  const std::initializer_list<int> dates{SCMP_SYS(utime), SCMP_SYS(utimes), SCMP_SYS(futimesat),
                                         SCMP_SYS(utimensat)};
  for (const int call : dates) {
    if (::seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(0), call, 0) != 0) return;
  }
  ::seccomp_load(filter.get());
}

}  // namespace

void confineThread(const std::string& program) {
  // Without it, a program that changes its user could be started with less than it needs.
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return;
  confineSystem(confineFiles(program));
}

}  // namespace broomtide::Confinement
