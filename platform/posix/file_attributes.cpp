#include "platform/posix/file_attributes.h"

#include <unistd.h>

#include <string>
#include <vector>

#if defined(__linux__)
#include <sys/xattr.h>
#endif

namespace korv {

namespace {

#if defined(__linux__)
// Access lists are such attributes, too.
void CopyExtendedAttributes(int from, int to) {
  const ssize_t size = ::flistxattr(from, nullptr, 0);
  if (size <= 0) return;
  std::string names(static_cast<size_t>(size), '\0');
  const ssize_t got = ::flistxattr(from, names.data(), names.size());
  if (got <= 0) return;
  names.resize(static_cast<size_t>(got));
  std::vector<char> value;
  for (size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
    const char* const name = names.data() + at;
    const ssize_t length = ::fgetxattr(from, name, nullptr, 0);
    if (length < 0) continue;
    value.resize(static_cast<size_t>(length));
    const ssize_t read = ::fgetxattr(from, name, value.data(), value.size());
    if (read >= 0) static_cast<void>(::fsetxattr(to, name, value.data(), static_cast<size_t>(read), 0));
  }
}
#else
void CopyExtendedAttributes(int, int) {}
#endif

}  // namespace

void CopyAttributes(int from, const struct stat& facts, int to) {
  // The owner can often not be kept, and then a program must not run with another owner's rights.
  const bool owned = ::fchown(to, facts.st_uid, facts.st_gid) == 0;
  static_cast<void>(::fchmod(to, facts.st_mode & (owned ? 07777U : 0777U)));
  CopyExtendedAttributes(from, to);
}

}  // namespace korv
