#pragma once

#include "platform/posix/unique_fd.hpp"
#include "vnzip/container.hpp"
#include "vnzip/packer.hpp"
#include "vnzip/sources.hpp"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace varnholt::vnzip {

/// What a batch does with entries that the archive has already.
enum class Existing { Replace, Update, Freshen };

/// One archive that batches are added to. A batch is written into a file beside it, which takes its place when it is
/// whole and on the disk. Two such files take turns, and each is given what the other got ahead of it: so a batch costs
/// what it adds, however large the archive is, and a killed run leaves the archive as the last whole batch made it.
class ArchiveRun {
 public:
  enum class End { Done, Stopped, Failed };
  /// Asked after each entry, and within a large one; false stops.
  using GoesOn = std::function<bool(const std::string& name)>;

  ArchiveRun(std::string path, LeftOut leftOut);
  ~ArchiveRun();
  ArchiveRun(const ArchiveRun&) = delete;
  ArchiveRun& operator=(const ArchiveRun&) = delete;

  const std::string& path() const { return path_; }
  End add(const Taking& taking, Existing existing, const std::vector<std::string>& fileSpecs, const GoesOn& goesOn);
  /// No more batches come. Where they have replaced much of each other or of the archive, that is taken out of it.
  void end();

 private:
  /// One of the files beside the archive: its temporary name, unless it is the archive now, and where entries end.
  struct Draft {
    platform::posix::UniqueFd fd;
    std::string name;
    std::uint64_t end = 0;
  };

  bool begin();
  bool makeDraft(Draft& draft);
  bool takeOver(int from, Directory taken, const std::vector<Source>& without, Draft& draft);
  bool prepare(const std::vector<Source>& sources);
  bool catchUp(Draft& draft, const Draft& from);
  void passOver(std::vector<Source>& sources, Existing existing) const;
  End pack(Draft& draft, const std::vector<Source>& sources, const GoesOn& goesOn, std::vector<Entry>& added);
  End packFile(Draft& draft, Packer& packer, std::shared_ptr<Piece> piece, const Source& source, const GoesOn& goesOn,
               std::vector<Entry>& added);
  bool finish(Draft& draft, std::vector<Entry> added);
  bool publish(Draft& draft);
  bool isUnchanged() const;
  bool flush(Draft& draft);

  std::string path_, leaf_;
  LeftOut leftOut_;
  Sources sources_;
  platform::posix::UniqueFd folder_;
  platform::posix::UniqueFd old_;  ///< the archive as it was before the run
  struct stat oldFacts_ {};
  Directory directory_;  ///< of the archive as it is now
  std::unordered_map<std::string, std::size_t> byName_;
  Draft drafts_[2];
  int current_ = -1;        ///< the draft that is the archive now
  std::uint64_t dead_ = 0;  ///< bytes of it that no entry claims any more
  bool begun_ = false;
  std::string buffer_;  ///< written behind `buffered_`
  std::uint64_t buffered_ = 0;
};

}  // namespace varnholt::vnzip
