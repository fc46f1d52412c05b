#include "host/app/Display.h"

#include "host/surface/WaylandEnvironment.h"
#include "platform/InformationDictionary.h"

#include <QDir>
#include <QLibraryInfo>
#include <algorithm>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

std::string valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { ::xcb_disconnect(connection); }
};

using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// Kept until the toolkit has its own: an X server that its only program leaves begins anew, and refuses
/// others meanwhile.
Connection& askingConnection() {
    static Connection connection;
    return connection;
}

/// The toolkit would end the program with advice to install it anew.
DisplayFacts::XServer askXServer() {
    if (valueOf("DISPLAY").empty())
        return DisplayFacts::XServer::none;
    askingConnection().reset(::xcb_connect(nullptr, nullptr));
    const bool isWorking = ::xcb_connection_has_error(askingConnection().get()) == 0;
    return isWorking ? DisplayFacts::XServer::answering : DisplayFacts::XServer::silent;
}

DisplayFacts::ToolkitPart findWaylandPart() {
    const QDir folder(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms"_s);
    // A name filter of the toolkit's would load its regular expressions, which nothing else at the start
    // needs.
    const bool isThere = std::ranges::any_of(
        folder.entryList(QDir::Files), [](const QString& file) { return file.startsWith("libqwayland"_L1); });
    return isThere ? DisplayFacts::ToolkitPart::installed : DisplayFacts::ToolkitPart::missing;
}

/// Beside the program, built or installed. Settings of the machine or the user would change the pictures.
FileURL pictureFontSettings() {
    return mainExecutable().parent_path().parent_path() / "share/vantel-widgets/fonts/fonts.conf";
}

} // namespace

DisplayFacts displayFacts(WantedBackEnd wanted) {
    DisplayFacts facts{.wanted = wanted,
                       .platform = valueOf("QT_QPA_PLATFORM"),
                       .compositor = askCompositor(),
                       .waylandPart = findWaylandPart()};
    if (!chooseBackEnd(facts))
        facts.xServer = askXServer();
    return facts;
}

std::string preparePlatform(BackEnd backEnd) {
    if (backEnd == BackEnd::toolkit)
        return {};
    if (backEnd == BackEnd::x11)
        return "xcb";
    for (const char* variable : waylandEnvironment)
        ::setenv(variable, "1", 1);
    return "wayland";
}

std::string prepareMemory() {
    ::setenv("FONTCONFIG_FILE", pictureFontSettings().c_str(), 1);
    ::setenv("QT_LOGGING_RULES", "default.warning=false", 0); // it misses folders that pictures do not need
    return "offscreen";
}

void releaseDisplay() {
    askingConnection().reset();
}

} // namespace vantel
