#include "cli/SessionBus.h"

#include <memory>
#include <system_error>

#include <dlfcn.h>
#include <systemd/sd-bus.h>

namespace vantel {

namespace {

constexpr const char* busName = "org.vantel.Widgets";
constexpr const char* objectPath = "/org/vantel/Widgets";
constexpr const char* interfaceName = "org.vantel.Widgets1";

/// The bus library, loaded when it is first needed: it takes most of a millisecond, and every command but one
/// does without it.
class BusLibrary {
public:
    BusLibrary()
        : m_handle(::dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL)) {}

    bool isLoaded() const { return m_handle != nullptr; }

    template <typename Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(::dlsym(m_handle, name));
    }

private:
    void* m_handle; // stays loaded until the process ends
};

std::string reason(int negativeError) {
    return std::generic_category().message(-negativeError);
}

std::string callFailure(const sd_bus_error& error, int result) {
    const std::string name = error.name == nullptr ? "" : error.name;
    if (name == "org.freedesktop.DBus.Error.ServiceUnknown" ||
        name == "org.freedesktop.DBus.Error.NameHasNoOwner")
        return "no widget host is running";
    return error.message == nullptr ? reason(result) : error.message;
}

int appendKind(const BusLibrary& library, sd_bus_message* message, const std::optional<std::string>& kind) {
    if (!kind)
        return 0;
    return library.function<decltype(sd_bus_message_append_basic)>("sd_bus_message_append_basic")(
        message, 's', kind->c_str());
}

std::expected<void, std::string> call(const BusLibrary& library, sd_bus* bus,
                                      const std::optional<std::string>& kind) {
    const char* method = kind ? "ReloadTimelines" : "ReloadAllTimelines";
    sd_bus_message* raw = nullptr;
    const auto unreference = library.function<decltype(sd_bus_message_unref)>("sd_bus_message_unref");
    int result = library.function<decltype(sd_bus_message_new_method_call)>("sd_bus_message_new_method_call")(
        bus, &raw, busName, objectPath, interfaceName, method);
    if (result < 0)
        return std::unexpected(reason(result));
    const std::unique_ptr<sd_bus_message, decltype(unreference)> message(raw, unreference);
    library.function<decltype(sd_bus_message_set_auto_start)>("sd_bus_message_set_auto_start")(raw, 0);
    result = appendKind(library, raw, kind);
    if (result < 0)
        return std::unexpected(reason(result));
    sd_bus_error error{};
    result = library.function<decltype(sd_bus_call)>("sd_bus_call")(bus, raw, 0, &error, nullptr);
    const std::string why = result < 0 ? callFailure(error, result) : "";
    library.function<decltype(sd_bus_error_free)>("sd_bus_error_free")(&error);
    if (result < 0)
        return std::unexpected(why);
    return {};
}

} // namespace

std::expected<void, std::string> requestReload(const std::optional<std::string>& kind) {
    const BusLibrary library;
    if (!library.isLoaded())
        return std::unexpected("libsystemd is not installed");
    sd_bus* bus = nullptr;
    const int opened = library.function<decltype(sd_bus_open_user)>("sd_bus_open_user")(&bus);
    if (opened < 0)
        return std::unexpected("no widget host is running (no session bus: " + reason(opened) + ")");
    const auto result = call(library, bus, kind);
    library.function<decltype(sd_bus_flush_close_unref)>("sd_bus_flush_close_unref")(bus);
    return result;
}

} // namespace vantel
