#include "platform/posix/posix_error.hpp"

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace varnholt::platform::posix {

ErrorCode errorCodeOf(int errorNumber) {
  switch (errorNumber) {
  case ENOENT:
    return ErrorCode::NotFound;
  case EACCES:
  case EPERM:
  case EROFS:
  case EBUSY:
  case ETXTBSY:
    return ErrorCode::AccessDenied;
  case EEXIST:
    return ErrorCode::AlreadyThere;
  case ENOTDIR:
    return ErrorCode::NotAFolder;
  case EISDIR:
    return ErrorCode::IsAFolder;
  case ENOTEMPTY:
    return ErrorCode::NotEmpty;
  case ENOSPC:
  case EDQUOT:
    return ErrorCode::NoSpace;
  case EFBIG:
  case EOVERFLOW:
    return ErrorCode::TooLarge;
  case ENAMETOOLONG:
  case ELOOP:
  case EINVAL:
  case EILSEQ:
    return ErrorCode::InvalidPath;
  case ENOSYS:
  case EOPNOTSUPP:
  case EXDEV:
    return ErrorCode::NotSupported;
  case ENOMEDIUM:
  case ENODEV:
  case ENXIO:
  case ENOTCONN:
  case EHOSTDOWN:
  case EHOSTUNREACH:
  case ESTALE:
    return ErrorCode::NotReady;
  default:
    return ErrorCode::Failed;
  }
}

const char* errorWords(int errorNumber) {
  const char* const words = ::strerrordesc_np(errorNumber);
  return words ? words : "Unknown error";
}

bool cannotKeep(int errorNumber) { return errorNumber == EPERM || errorNumber == EOPNOTSUPP || errorNumber == ENOSYS; }

int syncFile(int fd) { return ::fsync(fd) == 0 || errno == EINVAL || cannotKeep(errno) ? 0 : errno; }

Error systemError(int errorNumber, std::string systemPath) {
  return {errorCodeOf(errorNumber), std::move(systemPath), errorWords(errorNumber)};
}

Error refusal(ErrorCode code, std::string systemPath, const char* text) { return {code, std::move(systemPath), text}; }

}  // namespace varnholt::platform::posix
