#pragma once

// GIO first: one of its types has a member named `signals`, which others define as a word of their own.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "platform/shared_library.hpp"

namespace varnholt::platform::posix {

/// What we use of GIO, and of the object system below it, which its library brings.
class GioLibrary : public LateLibrary {
 public:
  GioLibrary() : LateLibrary("libgio-2.0.so.0") {}

  VARNHOLT_LATE_CALL(g_object_unref);
  VARNHOLT_LATE_CALL(g_type_check_instance_is_a);
  VARNHOLT_LATE_CALL(g_app_info_get_default_for_type);
  VARNHOLT_LATE_CALL(g_app_info_get_id);
  VARNHOLT_LATE_CALL(g_app_launch_context_new);
  VARNHOLT_LATE_CALL(g_app_launch_context_setenv);
  VARNHOLT_LATE_CALL(g_desktop_app_info_new);
  VARNHOLT_LATE_CALL(g_desktop_app_info_launch_uris_as_manager);
  VARNHOLT_LATE_CALL(g_content_type_get_description);
  VARNHOLT_LATE_CALL(g_content_type_get_icon);
  VARNHOLT_LATE_CALL(g_content_type_guess);
  VARNHOLT_LATE_CALL(g_content_type_is_unknown);
  VARNHOLT_LATE_CALL(g_themed_icon_get_names);
  VARNHOLT_LATE_CALL(g_themed_icon_get_type);
  VARNHOLT_LATE_CALL(g_bus_get_sync);
  VARNHOLT_LATE_CALL(g_dbus_connection_call_sync);
  VARNHOLT_LATE_CALL(g_dbus_error_quark);
};

/// Opened by the first call of this, in any thread.
inline const GioLibrary& gio() {
  static const GioLibrary library;
  return library;
}

}  // namespace varnholt::platform::posix
