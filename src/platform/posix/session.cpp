#include "platform/posix/gio_library.hpp"

#include "platform/posix/shell.hpp"

#include <cstdlib>
#include <memory>

namespace varnholt::platform::posix {
namespace {

/// Who ends a session of his desktop when he is asked. The arguments say that the user has been asked already.
struct Manager {
  const char *name, *path, *interface, *method;
  const char* arguments;  ///< as text of GVariant; null: none
};

// From the published D-Bus interfaces of GNOME (and MATE, Cinnamon, which keep its name), Plasma, Xfce and LXQt.
constexpr Manager Managers[] = {
    {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager", "Logout", "(uint32 1,)"},
    {"org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown", "logout", nullptr},
    {"org.xfce.SessionManager", "/org/xfce/SessionManager", "org.xfce.Session.Manager", "Logout", "(false, true)"},
    {"org.lxqt.session", "/LXQtSession", "org.lxqt.session", "logout", nullptr},
};

using Connection = std::unique_ptr<GDBusConnection, decltype(&::g_object_unref)>;

/// True when the service has done it; `failure` keeps the words of one that is there and would not.
bool call(GDBusConnection* bus, const Manager& manager, GVariant* arguments, std::string& failure) {
  GError* error = nullptr;
  GVariant* answer =
      gio().g_dbus_connection_call_sync(bus, manager.name, manager.path, manager.interface, manager.method, arguments,
                                        nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, &error);
  if (answer) g_variant_unref(answer);
  if (!error) return true;
  const GQuark ofBus = gio().g_dbus_error_quark();
  if (!g_error_matches(error, ofBus, G_DBUS_ERROR_SERVICE_UNKNOWN) &&
      !g_error_matches(error, ofBus, G_DBUS_ERROR_NAME_HAS_NO_OWNER))
    failure = error->message;
  g_error_free(error);
  return false;
}

Connection busOf(GBusType type) {
  return {gio().isWhole() ? gio().g_bus_get_sync(type, nullptr, nullptr) : nullptr, gio().g_object_unref};
}

}  // namespace

Result<void> PosixShell::logOff() {
  std::string failure;
  if (const Connection bus = busOf(G_BUS_TYPE_SESSION))
    for (const Manager& manager : Managers) {
      GVariant* arguments =
          manager.arguments ? g_variant_parse(nullptr, manager.arguments, nullptr, nullptr, nullptr) : nullptr;
      if (call(bus.get(), manager, arguments, failure)) return {};
    }
  // A desktop without a service of its own: the system ends the session for it (systemd's login manager).
  const char* session = std::getenv("XDG_SESSION_ID");
  if (const Connection bus = busOf(G_BUS_TYPE_SYSTEM); bus && session) {
    const Manager login{"org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                        "TerminateSession", nullptr};
    if (call(bus.get(), login, g_variant_new("(s)", session), failure)) return {};
  }
  return Error{ErrorCode::NotFound, {}, failure.empty() ? "No desktop session answers. Log off by its menu." : failure};
}

}  // namespace varnholt::platform::posix
