#pragma once

#include <string>

/// The naive model of what is taken out of a document's main part, in three plain steps: the list of what
/// stands in it, its lines, their text.
namespace korv::reference {

std::string DocxText(const std::string& xml);

}  // namespace korv::reference
