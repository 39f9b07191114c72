// The record pages of the documentation: Markdown, one page for each record and an index.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kxdados {

// The name of each page, relative to the folder of the documentation, and its text.
std::vector<std::pair<std::string, std::string>> Paginas();

// Writes them into the folder. False, and a message to the standard error output, when a page
// cannot be written.
bool EscreveReferencia(const std::string& pasta);

}  // namespace kxdados
