#pragma once

#include "vnzip/vnzip.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace varnholt::zip {

/// The options of an archive, and what is to go into it.
class cZip {
 public:
  cZip();

  // Options. Two of them are as they always were: FreshenFiles is written into UpdateOnlyIfNewer, and the level of
  // compression stays the library's own.
  bool Encrypt() const { return options_.encrypt != 0; }
  void setEncrypt(bool on) { options_.encrypt = on; }
  bool IncludeSystemAndHiddenFiles() const { return options_.systemAndHidden != 0; }
  void setIncludeSystemAndHiddenFiles(bool on) { options_.systemAndHidden = on; }
  bool StoreVolumeLabel() const { return options_.volumeLabel != 0; }
  void setStoreVolumeLabel(bool on) { options_.volumeLabel = on; }
  bool StoreDirectories() const { return options_.noDirectoryEntries == 0; }
  void setStoreDirectories(bool on) { options_.noDirectoryEntries = !on; }
  bool StoreFolderNames() const { return options_.junkNames == 0; }
  void setStoreFolderNames(bool on) { options_.junkNames = !on; }
  bool RecurseSubDirs() const { return options_.recurse != 0; }
  void setRecurseSubDirs(bool on) { options_.recurse = on ? 2 : 0; }
  bool ConvertCRLFToLF() const { return options_.crLfToLf != 0; }
  void setConvertCRLFToLF(bool on) { options_.crLfToLf = on; }
  bool ConvertLFToCRLF() const { return options_.lfToCrLf != 0; }
  void setConvertLFToCRLF(bool on) { options_.lfToCrLf = on; }
  bool AllowAppend() const { return options_.grow != 0; }
  void setAllowAppend(bool on) { options_.grow = on; }
  bool Delete() const { return options_.deleteEntries != 0; }
  void setDelete(bool on) { options_.deleteEntries = on; }
  bool UpdateOnlyIfNewer() const { return options_.update != 0; }
  void setUpdateOnlyIfNewer(bool on) { options_.update = on; }
  bool FreshenFiles() const { return options_.freshen != 0; }
  void setFreshenFiles(bool on) { options_.update = on; }
  bool AddComment() const { return options_.comment != 0; }
  void setAddComment(bool on) { options_.comment = on; }
  std::int32_t Encryption() const { return options_.encryption; }
  /// 0: all messages, 1: some, 2: none.
  int MessageLevel() const { return options_.messagesFull ? 0 : options_.messagesSecond > 0 ? 1 : 2; }
  void setMessageLevel(int level);

  std::string BasePath;  ///< program path: names of entries begin below it, and the archive lies there
  std::string ZipFile;   ///< name of the archive

  void ClearFileSpecs() { specs_.clear(); }
  /// The new count.
  std::size_t AddFileSpec(std::string spec);
  std::size_t FileSpecCount() const { return specs_.size(); }
  const std::string& FileSpec(std::size_t index) const { return specs_.at(index); }

  /// The record as the library takes it, without its texts.
  const VnOptions& options() const { return options_; }
  std::int32_t result = 0;
  bool Success() const { return result == 0; }
  /// The archive in work stops in front of its next file.
  void Cancel() { cancel = true; }
  bool cancel = false;

  std::function<void(const std::string& text)> Progress;
  std::function<void(const std::string& entry, bool& cancel)> Service;
  std::function<std::string()> CommentRequest, PasswordRequest;

 private:
  VnOptions options_{};
  std::vector<std::string> specs_;
};

}  // namespace varnholt::zip
