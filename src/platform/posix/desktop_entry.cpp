#include "platform/posix/gio_library.hpp"

#include "platform/posix/desktop_entry.hpp"

#include <csignal>
#include <memory>

#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

struct Unref {
  void operator()(gpointer object) const { gio().g_object_unref(object); }
  void operator()(GError* error) const { g_error_free(error); }
};

/// Files of one launch.
class Files {
 public:
  explicit Files(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
      list_ = g_list_append(list_, g_filename_to_uri(path.c_str(), nullptr, nullptr));
  }
  ~Files() { g_list_free_full(list_, g_free); }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  GList* uris() const { return list_; }

 private:
  GList* list_ = nullptr;
};

/// In the child: a session of its own, so that it outlives us, and the signals of a fresh process.
void becomeFree(gpointer) {
  ::setsid();
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
}

void noteChild(GDesktopAppInfo*, GPid child, gpointer noted) { *static_cast<pid_t*>(noted) = child; }

}  // namespace

Result<pid_t> launchDesktopEntry(const std::string& name, const std::vector<std::string>& files,
                                 const std::vector<std::string>& environment) {
  if (!gio().isWhole()) return Error{ErrorCode::NotFound, name, "nothing knows the desktop's entries"};
  const std::unique_ptr<GDesktopAppInfo, Unref> entry(gio().g_desktop_app_info_new(name.c_str()));
  if (!entry) return Error{ErrorCode::NotFound, name, "no such desktop entry"};
  const std::unique_ptr<GAppLaunchContext, Unref> context(gio().g_app_launch_context_new());
  for (const std::string& variable : environment) {
    const auto equals = variable.find('=');
    gio().g_app_launch_context_setenv(context.get(), variable.substr(0, equals).c_str(), variable.c_str() + equals + 1);
  }
  pid_t child = 0;
  GError* failure = nullptr;
  const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
  const bool launched = gio().g_desktop_app_info_launch_uris_as_manager(
      entry.get(), Files(files).uris(), context.get(), flags, becomeFree, nullptr, noteChild, &child, &failure);
  const std::unique_ptr<GError, Unref> owned(failure);
  if (launched) return child;
  return Error{ErrorCode::Failed, name, failure ? failure->message : "it does not start"};
}

}  // namespace varnholt::platform::posix
