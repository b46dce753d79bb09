#pragma once

#include "platform/attributes.hpp"
#include "platform/result.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// Where the entries of one volume keep their DOS attributes, and the calls that read and write them there: the
/// volume's own (vfat, exfat: ioctl_fat(2); NTFS: system.ntfs_attrib; cifs: user.cifs.dosattrib), else the extended
/// attribute user.DOSATTRIB. One object serves one folder and one thread; it learns when the volume has none.
class AttributeStore {
 public:
  enum class Kind { None, Fat, Ntfs, Cifs, User };

  /// The store of the volume that holds an open folder or file.
  static AttributeStore ofDescriptor(int fd);
  static AttributeStore ofPath(const char* systemPath);
  /// The same for a path whose device number is known: the volume is asked once a while, since the number may come to
  /// stand for another volume.
  static AttributeStore ofVolume(dev_t device, const char* systemPath);
  AttributeStore() = default;

  /// What is stored for a regular file or folder; empty when nothing is, or it cannot be read. The path may be
  /// relative to the thread's working folder. A link at its end is followed only with `follow`.
  std::optional<Attributes> read(const char* path, bool follow = false);
  /// Stores the word, in text form where user.DOSATTRIB is used. Gives 0 or errno; ENOTSUP where nothing can be kept. A
  /// link at the path's end is followed only with `follow`.
  int write(const char* path, Attributes attributes, bool follow = false) const;
  Kind kind() const { return kind_; }

 private:
  explicit AttributeStore(Kind kind) : kind_(kind) {}
  std::optional<Attributes> readWord(const char* path, bool follow, const char* name);
  std::optional<Attributes> readText(const char* path, bool follow);

  Kind kind_ = Kind::None;
};

/// The attribute word that is reported: what is stored, completed by what the mode and the name tell.
/// A file without owner write permission is always read-only. Where nothing is stored, a file is archive and a name
/// that begins with a point is hidden. A folder is folder plus what is stored.
Attributes reportedAttributes(std::optional<Attributes> stored, mode_t mode, std::string_view name, bool compressed);

/// Sets the settable bits of a file or folder to exactly those given, in its store and, for a file, in the owner's
/// write permission. NotSupported for a link, which has none of its own, and where the rest of the bits cannot be kept;
/// the permission is then set all the same.
Result<void> setAttributesAt(const std::string& systemPath, Attributes attributes);
/// The same, unless the reported value is one of `spared`: false, and nothing is touched.
Result<bool> setAttributesUnless(const std::string& systemPath, std::span<const Attributes> spared,
                                 Attributes attributes);
/// Leaves a file system alone of all that it has and stores.
Result<void> resetAttributesAt(const std::string& systemPath);

}  // namespace varnholt::platform::posix
