#pragma once

#include <map>
#include <string>
#include <vector>

#include "sources/documents/xml_walker.h"

namespace korv {

/// Finds the package document that META-INF/container.xml names.
class EpubContainer final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view /*name*/) override {}
  void Characters(std::string_view /*text*/, uint64_t /*line*/) override {}
  size_t TextBytes() const override { return Package.size(); }

  std::string Package;  ///< Name of the member; empty where there is none.
};

/// Finds the chapters of a book in its package document, in reading order.
class EpubPackage final : public XmlHandler {
 public:
  /// More than any book has.
  static constexpr size_t kMostChapters = 100000;

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view /*name*/) override {}
  void Characters(std::string_view /*text*/, uint64_t /*line*/) override {}
  size_t TextBytes() const override { return bytes_; }

  /// As URLs beside the package document. Only XHTML; without what is no part of the reading order.
  std::vector<std::string> Chapters() const;

 private:
  std::map<std::string, std::string, std::less<>> hrefs_;  ///< Of XHTML items, by their ids.
  std::vector<std::string> spine_;                         ///< Ids.
  size_t bytes_ = 0;
};

/// Whether META-INF/encryption.xml hides more than fonts, which are no text.
class EpubEncryption final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view /*text*/, uint64_t /*line*/) override {}
  size_t TextBytes() const override { return 0; }

  bool HidesText = false;

 private:
  bool inData_ = false;
  bool isFont_ = false;
};

}  // namespace korv
