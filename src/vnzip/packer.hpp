#pragma once

#include "vnzip/sources.hpp"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace varnholt::vnzip {

/// A file as it is packed: whole, or one part of a large one.
struct Piece {
  std::size_t source = 0;  ///< among the sources
  std::uint64_t offset = 0, length = 0;
  bool isFirst = true, isLast = true;

  bool isDone = false;
  std::string packed;
  bool isStored = false;  ///< packing would have made it no smaller
  std::uint32_t crc = 0;
  std::string failure;  ///< why the file is to be left out; empty: it is not
};

/// Packs files on all processors, a few ahead of who takes them, so that it needs the same room whatever there is.
class Packer {
 public:
  explicit Packer(const std::vector<Source>& sources);
  ~Packer();
  Packer(const Packer&) = delete;
  Packer& operator=(const Packer&) = delete;

  /// The next piece in the order of the sources; null behind the last.
  std::shared_ptr<Piece> next();

 private:
  void work();
  /// The next piece to work on, with the lock held; null: there is none.
  std::shared_ptr<Piece> begin();
  bool hasRoom() const;

  const std::vector<Source>& sources_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Piece>> pieces_;  ///< begun, and not taken yet
  std::uint64_t held_ = 0;                     ///< their bytes
  std::size_t source_ = 0;
  std::uint64_t offset_ = 0;
  bool ends_ = false;
  std::vector<std::thread> workers_;
};

}  // namespace varnholt::vnzip
