#pragma once

#include <cstdint>

#include <wayland-client-core.h>

struct wl_output;
struct wl_surface;

/// The protocol zwlr_layer_shell_v1, as far as it is used here: surfaces that stand on layers of an output,
/// below or above all windows. Distributions do not ship its description, so its two tables are written by
/// hand. Objects of it are plain proxies.
namespace vantel::layershell {

inline constexpr const char* globalName = "zwlr_layer_shell_v1";

/// The newest version that is known here. Since 2 a surface can change its layer, since 3 the shell can be
/// destroyed, since 4 the keyboard can come on demand.
inline constexpr std::uint32_t newestVersion = 4;
inline constexpr std::uint32_t versionOfSetLayer = 2;
inline constexpr std::uint32_t versionOfDestroyShell = 3;

enum class Layer : std::uint32_t { background, bottom, top, overlay };

/// There is a third one, on demand, of which compositors disagree what it means for a surface that has the
/// keyboard already.
enum class Keyboard : std::uint32_t { none, exclusive };

/// Bits of `setAnchor`.
inline constexpr std::uint32_t topEdge = 1;
inline constexpr std::uint32_t bottomEdge = 2;
inline constexpr std::uint32_t leftEdge = 4;
inline constexpr std::uint32_t rightEdge = 8;

/// What a layer surface hears. After `configure` it has to acknowledge, and only then may it show something;
/// after `closed` it can only be destroyed.
struct SurfaceListener {
    void (*configure)(void* data, wl_proxy* surface, std::uint32_t serial, std::uint32_t width,
                      std::uint32_t height);
    void (*closed)(void* data, wl_proxy* surface);
};

const wl_interface& shellInterface();

void destroyShell(wl_proxy* shell);

/// Makes a surface, which has no role yet and nothing to show, a layer surface. It has to be destroyed before
/// the surface.
wl_proxy* getLayerSurface(wl_proxy* shell, wl_surface* surface, wl_output* output, Layer layer,
                          const char* name);
void listen(wl_proxy* surface, const SurfaceListener& listener, void* data);

void setSize(wl_proxy* surface, std::uint32_t width, std::uint32_t height);
void setAnchor(wl_proxy* surface, std::uint32_t edges);
void setExclusiveZone(wl_proxy* surface, std::int32_t zone);
void setMargin(wl_proxy* surface, std::int32_t top, std::int32_t right, std::int32_t bottom,
               std::int32_t left);
void setKeyboard(wl_proxy* surface, Keyboard keyboard);
void acknowledge(wl_proxy* surface, std::uint32_t serial);
void setLayer(wl_proxy* surface, Layer layer);
void destroySurface(wl_proxy* surface);

} // namespace vantel::layershell
