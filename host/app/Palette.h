#pragma once

namespace vantel {

enum class Shade { light, dark };

/// Whether the desktop itself gives the toolkit dark colours, whatever `usePalette` has made of them.
bool isDesktopPaletteDark();

/// Gives menus and windows of this program colours of a shade, where the desktop's own are of the other one:
/// not every desktop tells the toolkit what it tells the portal.
void usePalette(Shade shade);

} // namespace vantel
