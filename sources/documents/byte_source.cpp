#include "sources/documents/byte_source.h"

#include <algorithm>
#include <vector>

#include "base/translation.h"
#include "sources/questions.h"

namespace korv {

Expected<size_t, DocumentFault> FileBytes::Read(std::span<char> buffer) {
  if (given_ < head_.size()) {
    const size_t size = std::min(buffer.size(), head_.size() - given_);
    std::copy_n(head_.data() + given_, size, buffer.data());
    given_ += size;
    return size;
  }
  if (!rest_) return size_t{0};
  const Expected<size_t, FileError> got = rest_->Read(buffer);
  if (!got) return DocumentFault::Unreadable;
  return *got;
}

std::optional<DocumentFault> UnpackLimit::Take(size_t bytes) {
  unpacked_ += bytes;
  if (unpacked_ > most_) return DocumentFault::TooLarge;
  if (confirmed_ || unpacked_ <= kHarmlessBytes || unpacked_ / kMostRatio < packed_) return std::nullopt;
  confirmed_ = confirm_ && confirm_();
  return confirmed_ ? std::nullopt : std::optional(DocumentFault::TooPacked);
}

UnpackLimit LimitFor(const std::filesystem::path& path, uint64_t packed, uint64_t most,
                     const ReadContext& context) {
  // A folder run is not held up.
  if (context.IsOneOfMany) return {packed, most};
  return {packed, most, [name = PathToText(path), &messages = context.Messages] {
            return messages.Show({.Text = Fill(Tr("%1\nunpacks to more than 200 times its size.\n"
                                                  "Do you wish to continue?"),
                                               {name}),
                                  .Title = Tr("Big file"),
                                  .Icon = Icon::Question,
                                  .Buttons = Buttons::YesNo,
                                  .DefaultAnswer = Answer::No,
                                  .Question = questions::kPackedDensely}) == Answer::Yes;
          }};
}

Expected<size_t, DocumentFault> MemberBytes::Read(std::span<char> buffer) {
  const Expected<size_t, ZipError> got = member_.Read(buffer);
  if (!got) return FaultOf(got.Error());
  if (const auto fault = limit_.Take(*got)) return *fault;
  return *got;
}

DocumentFault FaultOf(const ZipError& error) {
  switch (error.Fault) {
    case ZipFault::Unsupported:
      return DocumentFault::Unsupported;
    case ZipFault::BadChecksum:
      return DocumentFault::BadChecksum;
    case ZipFault::Unreadable:
      return DocumentFault::Unreadable;
    case ZipFault::NotAnArchive:
    case ZipFault::NoSuchMember:
    case ZipFault::Damaged:
      break;
  }
  return DocumentFault::Damaged;
}

Expected<std::string, DocumentFault> ReadAll(ByteSource& source, size_t most) {
  constexpr size_t kBlock = size_t{64} << 10;
  std::string bytes;
  std::vector<char> block(kBlock);
  for (;;) {
    const Expected<size_t, DocumentFault> got = source.Read(block);
    if (!got) return got.Error();
    if (*got == 0) return bytes;
    if (bytes.size() + *got > most) return DocumentFault::TooLarge;
    bytes.append(block.data(), *got);
  }
}

}  // namespace korv
