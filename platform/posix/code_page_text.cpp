#include "platform/code_page_text.h"

#include <iconv.h>

#include <cerrno>

namespace korv {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// From the encoding of a name to another one.
class Decoder {
 public:
  Decoder(const char* to, const std::string& from) : handle_(::iconv_open(to, from.c_str())) {}
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder() {
    if (Known()) ::iconv_close(handle_);
  }
  bool Known() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  /// Takes what it converts off `bytes`. 0, or the error number of what stands there.
  int Convert(std::string_view& bytes, std::string& text) {
    char buffer[4096];
    char* out = buffer;
    size_t room = sizeof buffer;
    // iconv() takes its input as changeable for historical reasons and leaves it alone.
    char* in = const_cast<char*>(bytes.data());
    size_t left = bytes.size();
    const size_t result = ::iconv(handle_, &in, &left, &out, &room);
    const int error = result == static_cast<size_t>(-1) ? errno : 0;
    text.append(buffer, out);
    bytes.remove_prefix(bytes.size() - left);
    return error;
  }

 private:
  iconv_t handle_;
};

}  // namespace

std::optional<std::string> TextOfBytes(std::string_view bytes, const std::string& encoding) {
  Decoder decoder("UTF-8", encoding);
  if (!decoder.Known()) return std::nullopt;
  std::string text;
  while (!bytes.empty()) {
    const int error = decoder.Convert(bytes, text);
    if (error == 0 || error == E2BIG || bytes.empty()) continue;
    text += kReplacement;
    bytes.remove_prefix(1);
  }
  return text;
}

std::optional<ByteTable> SingleByteTable(const std::string& encoding) {
  constexpr size_t kCharacter = 4;
  Decoder decoder("UTF-32LE", encoding);
  if (!decoder.Known()) return std::nullopt;
  ByteTable table{};
  for (size_t code = 0; code < table.size(); ++code) {
    const char byte = static_cast<char>(code);
    std::string_view bytes(&byte, 1);
    std::string text;
    const int error = decoder.Convert(bytes, text);
    // The byte begins a character of several.
    if (error == EINVAL || text.size() > kCharacter) return std::nullopt;
    table[code] = kNoCharacter;
    if (error != 0 || text.size() != kCharacter) continue;
    char32_t character = 0;
    for (size_t k = kCharacter; k-- > 0;) character = character << 8 | static_cast<unsigned char>(text[k]);
    table[code] = character;
  }
  return table;
}

}  // namespace korv
