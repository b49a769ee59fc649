// Loaded before a program (LD_PRELOAD), fails one of its system or library calls:
//
//     KORV_FAULT=call=write,at=3,error=28[,on]
//
// fails the third call of write() with errno 28, and with ",on" all that follow. Error 0 does not fail the
// call but lets it do less: reads and writes of one byte. KORV_FAULT_COUNTS=FILE gets a line "call number" at
// the end, how often each was called. Calls are counted from main() on, in all threads together.
// KORV_FAULT_LOG=FILE gets the names of calls that change a disk, in their order, and
// "writable-and-executable" where such memory is mapped.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <stdarg.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr const char* kCalls[] = {"open",           "read",   "write",     "close",   "fsync", "stat",
                                  "rename",         "unlink", "mkdir",     "opendir", "mmap",  "malloc",
                                  "pthread_create", "linkat", "ftruncate", "lseek"};
constexpr size_t kCallCount = sizeof kCalls / sizeof *kCalls;

std::atomic<bool> armed{false};
std::atomic<long> counts[kCallCount];
size_t failing = kCallCount;
long failingAt = 0;
int failingError = 0;
bool failingOn = false;
int logFile = -1;

size_t IndexOf(const char* call, size_t length) {
  size_t index = 0;
  while (index < kCallCount &&
         (std::strlen(kCalls[index]) != length || std::strncmp(kCalls[index], call, length) != 0))
    ++index;
  return index;
}

template <typename Function>
Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

enum class Fate { AsUsual, Fails, DoesLess };

Fate FateOf(size_t call) {
  if (!armed.load(std::memory_order_relaxed)) return Fate::AsUsual;
  const long number = counts[call].fetch_add(1) + 1;
  if (call != failing || !(number == failingAt || (failingOn && number > failingAt))) return Fate::AsUsual;
  if (failingError == 0) return Fate::DoesLess;
  errno = failingError;
  return Fate::Fails;
}

void Log(const char* call) {
  if (logFile < 0 || !armed) return;
  static const auto next = Next<ssize_t (*)(int, const void*, size_t)>("write");
  char line[32];
  const int length = std::snprintf(line, sizeof line, "%s\n", call);
  static_cast<void>(next(logFile, line, static_cast<size_t>(length)));
}

constexpr size_t kOpen = 0, kRead = 1, kWrite = 2, kClose = 3, kFsync = 4, kStat = 5, kRename = 6,
                 kUnlink = 7, kMkdir = 8, kOpendir = 9, kMmap = 10, kMalloc = 11, kThread = 12, kLinkat = 13,
                 kFtruncate = 14, kLseek = 15;

void ReadWish() {
  if (const char* log = std::getenv("KORV_FAULT_LOG"))
    logFile =
        Next<int (*)(const char*, int, ...)>("open")(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  const char* wish = std::getenv("KORV_FAULT");
  if (wish == nullptr) return;
  const char* call = std::strstr(wish, "call=");
  if (call != nullptr) failing = IndexOf(call + 5, std::strcspn(call + 5, ","));
  if (const char* at = std::strstr(wish, "at=")) failingAt = std::atol(at + 3);
  if (const char* error = std::strstr(wish, "error=")) failingError = std::atoi(error + 6);
  failingOn = std::strstr(wish, ",on") != nullptr;
}

void WriteCounts() {
  armed = false;
  const char* path = std::getenv("KORV_FAULT_COUNTS");
  if (path == nullptr) return;
  if (FILE* file = std::fopen(path, "w")) {
    for (size_t k = 0; k < kCallCount; ++k) std::fprintf(file, "%s %ld\n", kCalls[k], counts[k].load());
    std::fclose(file);
  }
}

int (*programMain)(int, char**, char**) = nullptr;

int ArmedMain(int argc, char** argv, char** environment) {
  ReadWish();
  armed = true;
  const int status = programMain(argc, argv, environment);
  WriteCounts();
  return status;
}

}  // namespace

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(), void (*fini)(),
                      void (*unload)(), void* stack) {
  programMain = main;
  using Start = int (*)(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(), void (*)(), void*);
  return Next<Start>("__libc_start_main")(ArmedMain, argc, argv, init, fini, unload, stack);
}

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  if (FateOf(kOpen) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*, int, ...)>("open");
  return next(path, flags, mode);
}

ssize_t read(int file, void* bytes, size_t size) {
  const Fate fate = FateOf(kRead);
  if (fate == Fate::Fails) return -1;
  static const auto next = Next<ssize_t (*)(int, void*, size_t)>("read");
  return next(file, bytes, fate == Fate::DoesLess && size > 1 ? 1 : size);
}

ssize_t write(int file, const void* bytes, size_t size) {
  const Fate fate = FateOf(kWrite);
  if (fate == Fate::Fails) return -1;
  static const auto next = Next<ssize_t (*)(int, const void*, size_t)>("write");
  Log("write");
  return next(file, bytes, fate == Fate::DoesLess && size > 1 ? 1 : size);
}

// A file is closed even where that fails.
int close(int file) {
  const bool fails = FateOf(kClose) == Fate::Fails;
  static const auto next = Next<int (*)(int)>("close");
  const int result = next(file);
  if (fails) errno = failingError;
  return fails ? -1 : result;
}

int fsync(int file) {
  if (FateOf(kFsync) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(int)>("fsync");
  Log("fsync");
  return next(file);
}

int stat(const char* path, struct stat* facts) {
  if (FateOf(kStat) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*, struct stat*)>("stat");
  return next(path, facts);
}

int lstat(const char* path, struct stat* facts) {
  if (FateOf(kStat) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*, struct stat*)>("lstat");
  return next(path, facts);
}

int fstat(int file, struct stat* facts) {
  if (FateOf(kStat) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(int, struct stat*)>("fstat");
  return next(file, facts);
}

int rename(const char* from, const char* to) {
  if (FateOf(kRename) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*, const char*)>("rename");
  Log("rename");
  return next(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  if (FateOf(kLinkat) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(int, const char*, int, const char*, int)>("linkat");
  Log("linkat");
  return next(fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) {
  if (FateOf(kUnlink) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*)>("unlink");
  Log("unlink");
  return next(path);
}

int ftruncate(int file, off_t length) {
  if (FateOf(kFtruncate) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(int, off_t)>("ftruncate");
  return next(file, length);
}

off_t lseek(int file, off_t offset, int whence) {
  if (FateOf(kLseek) == Fate::Fails) return -1;
  static const auto next = Next<off_t (*)(int, off_t, int)>("lseek");
  return next(file, offset, whence);
}

int mkdir(const char* path, mode_t mode) {
  if (FateOf(kMkdir) == Fate::Fails) return -1;
  static const auto next = Next<int (*)(const char*, mode_t)>("mkdir");
  return next(path, mode);
}

// The C library's own function does not come by here.
char* mkdtemp(char* pattern) {
  if (FateOf(kMkdir) == Fate::Fails) return nullptr;
  static const auto next = Next<char* (*)(char*)>("mkdtemp");
  return next(pattern);
}

DIR* opendir(const char* path) {
  if (FateOf(kOpendir) == Fate::Fails) return nullptr;
  static const auto next = Next<DIR* (*)(const char*)>("opendir");
  return next(path);
}

DIR* fdopendir(int file) {
  if (FateOf(kOpendir) == Fate::Fails) return nullptr;
  static const auto next = Next<DIR* (*)(int)>("fdopendir");
  return next(file);
}

void* mmap(void* address, size_t length, int protection, int flags, int file, off_t offset) {
  if (FateOf(kMmap) == Fate::Fails) return MAP_FAILED;
  if ((protection & PROT_WRITE) != 0 && (protection & PROT_EXEC) != 0) Log("writable-and-executable");
  static const auto next = Next<void* (*)(void*, size_t, int, int, int, off_t)>("mmap");
  return next(address, length, protection, flags, file, offset);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*begin)(void*),
                   void* argument) {
  if (FateOf(kThread) == Fate::Fails) return failingError;
  static const auto next =
      Next<int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
  return next(thread, attributes, begin, argument);
}

// dlsym() itself may ask for memory, so these go to the C library by its own names.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);

void* malloc(size_t size) {
  return FateOf(kMalloc) == Fate::Fails ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
  return FateOf(kMalloc) == Fate::Fails ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size) {
  return FateOf(kMalloc) == Fate::Fails ? nullptr : __libc_realloc(memory, size);
}

void* aligned_alloc(size_t alignment, size_t size) {
  return FateOf(kMalloc) == Fate::Fails ? nullptr : __libc_memalign(alignment, size);
}

}  // extern "C"
