#include "platform/sha256.h"

#include <windows.h>

#include <bcrypt.h>

#include <array>
#include <limits>
#include <stdexcept>

#include "base/translation.h"
#include "platform/hex_text.h"

namespace korv {

namespace {

void Check(NTSTATUS status) {
  if (status < 0) throw std::runtime_error(Tr("SHA-256 is not to be had."));
}

}  // namespace

struct Sha256::State {
  BCRYPT_ALG_HANDLE Algorithm = nullptr;
  BCRYPT_HASH_HANDLE Hash = nullptr;

  ~State() {
    if (Hash != nullptr) BCryptDestroyHash(Hash);
    if (Algorithm != nullptr) BCryptCloseAlgorithmProvider(Algorithm, 0);
  }
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
  Check(BCryptOpenAlgorithmProvider(&state_->Algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
  Check(BCryptCreateHash(state_->Algorithm, &state_->Hash, nullptr, 0, nullptr, 0, 0));
}

Sha256::~Sha256() = default;

void Sha256::Add(std::string_view bytes) {
  constexpr size_t kMost = std::numeric_limits<ULONG>::max();
  for (size_t at = 0; at < bytes.size(); at += kMost) {
    const std::string_view piece = bytes.substr(at, kMost);
    // The function takes what it only reads as something that it may change.
    auto* const data = reinterpret_cast<PUCHAR>(const_cast<char*>(piece.data()));
    Check(BCryptHashData(state_->Hash, data, static_cast<ULONG>(piece.size()), 0));
  }
}

std::string Sha256::Finish() {
  std::array<unsigned char, 32> digest{};
  Check(BCryptFinishHash(state_->Hash, digest.data(), static_cast<ULONG>(digest.size()), 0));
  return HexText(digest);
}

}  // namespace korv
