#include "panels/file_opener.hpp"

#include "core/program_files.hpp"
#include "core/text_file.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

constexpr std::string_view Archives[] = {"zip", "cab", "rar", "arj"};
constexpr const char* NoExplorer = "Cannot Find Explorer.exe, - Function Exits";

/// What stands for a text in a command that was stored.
struct Mark {
  std::string_view text;
  const std::string& value;
  bool isPath = false;
};

// Marks are in small letters; the text's case is ignored, and not as the locale tells it: Turkish has two letters i.
bool begins(std::string_view text, std::string_view mark) {
  return platform::foldCase(text.substr(0, mark.size())) == mark;
}

}  // namespace

void FileOpener::open(const std::string& path) {
  const bool isFile = program_.files().fileExists(path);
  if (!isFile && !program_.files().folderExists(path)) {
    program_.dialogs.alert("File/Folder Path NOT Valid !");
    return;
  }
  const std::string extension = platform::foldCase(paths::extension(paths::fileName(path)));
  if (const auto own = ownTypes.find(extension); own != ownTypes.end()) {
    own->second(path);
    return;
  }
  openByType(path);
}

void FileOpener::openByType(const std::string& path) {
  if (program_.files().fileExists(path)) mostUsed_.Muf(path);
  const std::string extension = platform::foldCase(paths::extension(paths::fileName(path)));
  const std::string command = reggetdata(path);
  if (command.empty() && std::ranges::find(Archives, extension) != std::end(Archives)) {
    if (startExplorer(path, NoExplorer)) Filehis_store(path);
    return;
  }
  if (command.empty()) {
    program_.dialogs.alert("File Extension NOT registrated !\rMake one from Controlpanel ,Tools, FolderOptions.");
    return;
  }
  if (program_.start(PathChange(command, path), paths::parent(path))) {
    Filehis_store(path);
    return;
  }
  program_.dialogs.alert("Trying Alternate Opening Method ! .....");
  OpenItemPath(path);
}

std::string FileOpener::reggetdata(const std::string& path) const {
  const auto extension = paths::extension(paths::fileName(path));
  if (extension.empty()) return {};
  return program_.platform.fileTypes.openCommand(extension).valueOr({});
}

std::string FileOpener::PathChange(const std::string& command, const std::string& path) const {
  const std::string quoted = platform::quoteArgument(path);
  const Mark marks[] = {{"\"%1\"", quoted, true},
                        {"\"%l\"", quoted, true},
                        {"%1", quoted, true},
                        {"%l", quoted, true},
                        {"%systemroot%", program_.folders.SystemRoot},
                        {"%programfiles%", program_.folders.ProgramFiles}};
  std::string text;
  bool marked = false;
  for (std::string_view rest = command; !rest.empty();) {
    const auto* mark = std::ranges::find_if(marks, [&](const Mark& each) { return begins(rest, each.text); });
    const bool found = mark != std::end(marks);
    text += found ? std::string_view(mark->value) : rest.substr(0, 1);
    marked = marked || (found && mark->isPath);
    rest.remove_prefix(found ? mark->text.size() : 1);
  }
  return marked ? text : text + ' ' + quoted;
}

void FileOpener::openShortcut(const std::string& file) { startExplorer(file, NoExplorer); }

bool FileOpener::startExplorer(const std::string& argument, const char* noExplorer) {
  const std::string explorer = paths::join(program_.folders.windir, "explorer.exe");
  if (!program_.files().fileExists(explorer)) {
    program_.dialogs.alert(noExplorer);
    return false;
  }
  const auto started = program_.start(platform::quoteArgument(explorer) + ' ' + platform::quoteArgument(argument));
  if (!started) program_.dialogs.alert("Cannot Start Explorer.exe !, - " + started.error().text);
  return started.ok();
}

bool FileOpener::openAddress(const std::string& base, const std::string& url, const char* noExplorer) {
  const std::string shortcut = core::program_file::path(program_.platform, core::program_file::TempUrl);
  const auto written = core::writeLines(program_.files(), shortcut,
                                        {"[Default]", "BASEURL=" + base, "[InternetShortcut]", "URL=" + url});
  if (!written) program_.dialogs.alert("Cannot Write Temp.Url !, - " + written.error().text);
  return written && startExplorer(shortcut, noExplorer);
}

void FileOpener::OpenItemPath(const std::string& path) { openAddress("file://" + path, "file:///" + path, NoExplorer); }

}  // namespace varnholt::panels
