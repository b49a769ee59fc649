#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/yielder.h"
#include "platform/files.h"
#include "sources/detect/encoding_choice.h"
#include "sources/read/text_reader.h"

namespace korv {

/// A text of any length that comes as a stream, standard input for one. It ends where a stop is requested.
///
///   StreamSource source(stream, EncodingChoice::Auto, yielder);
///   if (const auto error = source.ReadHead(shown)) ...
///   if (IsWords(source.Beginning())) TextReader reader(source.TakeHead(), &source, source.Encoding());
class StreamSource final : public InputFile {
 public:
  /// `kept`, where given, gets all that is read of the text, without its signature. All must outlive the
  /// source.
  StreamSource(InputFile& stream, EncodingChoice choice, const Yielder& yielder, std::string* kept)
      : stream_(stream), choice_(choice), yielder_(yielder), kept_(kept) {}

  /// Reads what a look at the first characters takes, and removes a UTF-8 signature. `onBlock` is told after
  /// each read how many bytes there are. An empty result on success.
  std::optional<FileError> ReadHead(const std::function<void(uint64_t)>& onBlock);
  /// The first kLookedAtCharacters characters or a few more, UTF-8; empty where there is no text.
  std::string Beginning() const;
  /// The bytes that ReadHead() has read, as they are.
  std::string_view Head() const { return head_; }
  /// How the text is to be read. The user is not asked: a text that looks like UTF-8 is read as UTF-8.
  EncodingPlan Encoding() const;
  /// The bytes that ReadHead() has read; the object reads on behind them.
  std::string TakeHead();

  Expected<size_t, FileError> Read(std::span<char> buffer) override;
  uint64_t Size() const override { return stream_.Size(); }

 private:
  InputFile& stream_;
  EncodingChoice choice_;
  const Yielder& yielder_;
  std::string* kept_;
  std::string head_;
  bool hadSignature_ = false;
  bool isTaken_ = false;  ///< What is read from now on is no part of the head.
};

}  // namespace korv
