#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/most_used.hpp"

#include <functional>
#include <map>
#include <string>

namespace varnholt::panels {

/// Opens a file by its type, and if that fails by another way.
class FileOpener {
 public:
  FileOpener(core::Program& program, Histories& histories, MostUsed& mostUsed)
      : program_(program), histories_(histories), mostUsed_(mostUsed) {}

  /// Opens the file by its extension. A failing opener ends in the alternate method.
  void open(const std::string& path);
  /// The same past what rooms open themselves.
  void openByType(const std::string& path);
  /// Has explorer.exe open what a shortcut file names; the user is told when it is missing.
  void openShortcut(const std::string& file);

  /// The open command of the file's type, not yet expanded; empty when the type is not registered.
  std::string reggetdata(const std::string& path) const;
  /// The command with its marks replaced: "%1" and "%l" by the file path in double quotes, %SystemRoot% and
  /// %ProgramFiles% by their folders. Without a mark the path goes behind a blank.
  std::string PathChange(const std::string& command, const std::string& path) const;
  /// The alternate way: a shortcut file of our own, handed to explorer.exe.
  void OpenItemPath(const std::string& path);
  /// The same for any address, as the file has it behind "BASEURL=" and behind "URL=". False: nothing was opened, and
  /// the user was told, by `noExplorer` when explorer.exe is missing.
  bool openAddress(const std::string& base, const std::string& url, const char* noExplorer);
  /// Notes the file as the newest of the recent ones.
  void Filehis_store(const std::string& path) { histories_.files.renew(path); }

  /// Extensions that rooms open themselves (".url"), lowered, without the point.
  std::map<std::string, std::function<void(const std::string& path)>> ownTypes;

 private:
  bool startExplorer(const std::string& argument, const char* noExplorer);

  core::Program& program_;
  Histories& histories_;
  MostUsed& mostUsed_;
};

}  // namespace varnholt::panels
