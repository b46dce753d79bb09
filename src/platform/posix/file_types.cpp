#include "platform/posix/gio_library.hpp"

#include "platform/posix/file_types.hpp"

#include "platform/posix/desktop_entry.hpp"
#include "platform/shell.hpp"
#include "platform/text_fold.hpp"

#include <memory>

namespace varnholt::platform::posix {
namespace {

struct Free {
  void operator()(char* text) const { g_free(text); }
  void operator()(char** list) const { g_strfreev(list); }
  void operator()(GAppInfo* app) const { gio().g_object_unref(app); }
  void operator()(GIcon* icon) const { gio().g_object_unref(icon); }
};
using Text = std::unique_ptr<char, Free>;

constexpr const char* unknownIcon = "text-x-generic";

std::string_view withoutPoint(std::string_view extension) {
  return extension.starts_with('.') ? extension.substr(1) : extension;
}

/// The content type of an extension; null when the database does not know it.
Text contentType(std::string_view extension) {
  if (withoutPoint(extension).empty() || !gio().isWhole()) return nullptr;
  const std::string name = "x." + std::string(withoutPoint(extension));
  Text type(gio().g_content_type_guess(name.c_str(), nullptr, 0, nullptr));
  if (type && gio().g_content_type_is_unknown(type.get())) return nullptr;
  return type;
}

/// The entry by its name. What has none is a command that somebody typed into another program.
std::string desktopCommand(GAppInfo* app) {
  const char* name = gio().g_app_info_get_id(app);
  return name ? quoteArgument(std::string(DesktopEntry) + name) + " \"%1\"" : std::string();
}

}  // namespace

std::string DesktopFileTypes::registryText(const std::string& path) const {
  const auto value = registry_.get(RegistryRoot::ClassesRoot, path, "");
  const auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
  return text ? *text : std::string();
}

std::string DesktopFileTypes::classOf(std::string_view extension) const {
  const std::string_view bare = withoutPoint(extension);
  return bare.empty() ? std::string() : registryText("." + std::string(bare));
}

Result<std::string> DesktopFileTypes::openCommand(std::string_view extension) const {
  if (const std::string name = classOf(extension); !name.empty())
    if (std::string command = registryText(name + "\\shell\\open\\command"); !command.empty()) return command;
  const Error none{ErrorCode::NotFound, std::string(extension), "no program is registered"};
  const Text type = contentType(extension);
  if (!type) return none;
  const std::unique_ptr<GAppInfo, Free> app(gio().g_app_info_get_default_for_type(type.get(), FALSE));
  std::string command = app ? desktopCommand(app.get()) : std::string();
  if (command.empty()) return none;
  return command;
}

std::string DesktopFileTypes::description(std::string_view extension) const {
  if (const std::string name = classOf(extension); !name.empty())
    if (std::string words = registryText(name); !words.empty()) return words;
  const Text type = contentType(extension);
  const Text words(type ? gio().g_content_type_get_description(type.get()) : nullptr);
  return words ? words.get() : "";
}

std::string DesktopFileTypes::iconName(std::string_view extension) const {
  const auto [place, isNew] = icons_.try_emplace(foldCase(withoutPoint(extension)), unknownIcon);
  if (!isNew) return place->second;
  const Text type = contentType(extension);
  const std::unique_ptr<GIcon, Free> icon(type ? gio().g_content_type_get_icon(type.get()) : nullptr);
  auto* const object = reinterpret_cast<GTypeInstance*>(icon.get());
  if (!icon || !gio().g_type_check_instance_is_a(object, gio().g_themed_icon_get_type())) return place->second;
  const gchar* const* names = gio().g_themed_icon_get_names(reinterpret_cast<GThemedIcon*>(object));
  if (names && names[0]) place->second = names[0];
  return place->second;
}

}  // namespace varnholt::platform::posix
