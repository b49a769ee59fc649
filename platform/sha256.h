#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korv {

/// The SHA-256 of bytes (FIPS 180-4), by the system's own library: about a gigabyte a second. One thread at a
/// time. Throws std::runtime_error where the library refuses, as it may when memory runs out.
class Sha256 {
 public:
  Sha256();
  ~Sha256();

  void Add(std::string_view bytes);
  /// Of all that was added: 64 lower-case hexadecimal digits. Ask once, and add nothing afterwards.
  std::string Finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korv
