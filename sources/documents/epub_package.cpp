#include "sources/documents/epub_package.h"

namespace korv {

namespace {

std::string Value(const XmlElement& element, std::string_view name) {
  return std::string(element.Attribute(name).value_or(""));
}

}  // namespace

void EpubContainer::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  if (!Package.empty() || LocalName(element.Name()) != "rootfile") return;
  const std::string type = Value(element, "media-type");
  if (type.empty() || type == "application/oebps-package+xml") Package = Value(element, "full-path");
}

void EpubPackage::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (name == "item" && hrefs_.size() < kMostChapters) {
    const std::string type = Value(element, "media-type");
    if (type != "application/xhtml+xml" && type != "text/html") return;
    const std::string id = Value(element, "id");
    const std::string href = Value(element, "href");
    bytes_ += id.size() + href.size();
    hrefs_.emplace(id, href);
  } else if (name == "itemref" && spine_.size() < kMostChapters) {
    if (Value(element, "linear") == "no") return;
    spine_.push_back(Value(element, "idref"));
    bytes_ += spine_.back().size();
  }
}

std::vector<std::string> EpubPackage::Chapters() const {
  std::vector<std::string> chapters;
  for (const std::string& id : spine_)
    if (const auto item = hrefs_.find(id); item != hrefs_.end()) chapters.push_back(item->second);
  return chapters;
}

void EpubEncryption::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (name == "EncryptedData") {
    inData_ = true;
    isFont_ = false;
  }
  if (!inData_ || name != "EncryptionMethod") return;
  const std::string method = Value(element, "Algorithm");
  isFont_ =
      isFont_ || method == "http://www.idpf.org/2008/embedding" || method == "http://ns.adobe.com/pdf/enc#RC";
}

void EpubEncryption::EndElement(std::string_view name) {
  if (LocalName(name) != "EncryptedData") return;
  HidesText = HidesText || !isFont_;
  inData_ = false;
}

}  // namespace korv
