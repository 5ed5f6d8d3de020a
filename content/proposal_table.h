// The proposals of both therapies as one page for proof-reading: what is proposed for each problem,
// and at which point on each of the twelve pathways.
#pragma once

#include "platform/database.h"

#include <string>

namespace vorna {

// The page in Markdown, out of a reference database whose plain tables hold the wanted language.
// Failure when a proposal finds no point on a pathway.
std::string proposalTable(Database& reference);

} // namespace vorna
