#include "platform/freed_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace korv {

void GiveFreedArraysBack() {
#ifdef __GLIBC__
  // Unless it is set, the least size of arrays with pages of their own grows with those that are freed, up to
  // 32 MB.
  constexpr int kLeastBytes = 1 << 20;
  ::mallopt(M_MMAP_THRESHOLD, kLeastBytes);
#endif
}

}  // namespace korv
