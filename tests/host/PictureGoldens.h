#pragma once

#include <QImage>
#include <string>

namespace vantel::testing {

enum class GoldenMode { compare, rebaseline };

/// How the goldens of this run are treated; `--rebaseline` on the command line writes them anew.
GoldenMode& goldenMode();

/// Compares a picture with the golden of that name in tests/data/golden/pictures. Edges of letters may differ
/// by what another version of a font library makes of them. A missing golden fails the test.
void expectPicture(const std::string& name, const QImage& actual);

} // namespace vantel::testing
