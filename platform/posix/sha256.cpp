#include "platform/sha256.h"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

#include "base/translation.h"
#include "platform/hex_text.h"

namespace korv {

namespace {

void Check(int succeeded) {
  if (succeeded != 1) throw std::runtime_error(Tr("SHA-256 is not to be had."));
}

}  // namespace

struct Sha256::State {
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> Context{EVP_MD_CTX_new(), EVP_MD_CTX_free};
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
  Check(state_->Context != nullptr && EVP_DigestInit_ex(state_->Context.get(), EVP_sha256(), nullptr) == 1);
}

Sha256::~Sha256() = default;

void Sha256::Add(std::string_view bytes) {
  Check(EVP_DigestUpdate(state_->Context.get(), bytes.data(), bytes.size()));
}

std::string Sha256::Finish() {
  std::array<unsigned char, 32> digest{};
  Check(EVP_DigestFinal_ex(state_->Context.get(), digest.data(), nullptr));
  return HexText(digest);
}

}  // namespace korv
