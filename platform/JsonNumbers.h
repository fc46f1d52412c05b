#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// The document with every number that the parser refuses for its size written so that it does not.
///
/// JSON bounds no number, the parser does: it takes integers of 64 bits and finite doubles, and rejects a
/// whole document for any other, even under a key that nobody reads. Here an integer beyond 64 bits becomes
/// the double it is nearest to, and a number beyond all doubles becomes `[[]]`, which every reader of a field
/// refuses. Everything else, malformed numbers among it, stays as it stands.
std::string withNumbersInRange(std::string_view json);

} // namespace vantel
