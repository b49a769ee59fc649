#pragma once

#include <windows.h>

#include <utility>

namespace korv {

/// A file, folder or device that is open; closed by the destructor.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (Open()) ::CloseHandle(handle_);
  }
  bool Open() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  bool Close() { return ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0; }

 private:
  HANDLE handle_;
};

/// Leaves a file to whatever others do with it meanwhile.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace korv
