#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "base/yielder.h"
#include "sources/documents/byte_source.h"
#include "sources/documents/document_fault.h"

namespace korv {

/// An element that begins. Valid during the call.
class XmlElement {
 public:
  XmlElement(const char* name, const char* const* attributes) : name_(name), attributes_(attributes) {}
  /// As the document has it, with its prefix: "text:p".
  std::string_view Name() const { return name_; }
  /// Empty where there is no such attribute. `name` as the document has it.
  std::optional<std::string_view> Attribute(std::string_view name) const;

 private:
  std::string_view name_;
  const char* const* attributes_;
};

/// The name without its prefix: "p" of "text:p".
std::string_view LocalName(std::string_view name);

/// What is found in a document, in its order. All text is UTF-8.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  /// `line` is the number of the line in the file, from 1.
  virtual void BeginElement(const XmlElement& element, uint64_t line) = 0;
  virtual void EndElement(std::string_view name) = 0;
  /// Text may come in any number of pieces.
  virtual void Characters(std::string_view text, uint64_t line) = 0;
  /// The bytes of text that the handler holds.
  virtual size_t TextBytes() const = 0;
};

/// Elements within each other. Documents have some tens.
inline constexpr size_t kMostXmlDepth = 1000;

/// Reads a document and tells `handler` what is in it. Never opens anything else that the document names.
/// Entities that a document declares are left out, so that none can grow; those of XHTML are characters.
/// Holds a few blocks of it, and no tag of more than 4 MB. A stop ends it as if the document ended there.
///
/// An empty result on success. Else NotWellFormed, TooDeep, UnknownEncoding, TooLarge (the handler holds more
/// than kMostTextBytes, or a tag is too long), or what the source says; what came before was told.
std::optional<DocumentFault> WalkXml(ByteSource& source, XmlHandler& handler, Yielder& yielder);

}  // namespace korv
