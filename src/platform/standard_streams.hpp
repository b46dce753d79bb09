#pragma once

namespace varnholt::platform {

/// Opens those of the three standard streams that whoever started the program has closed. Call before anything opens a
/// file: it would get the number of such a stream, and what is written there ends in that file.
void openStandardStreams();

}  // namespace varnholt::platform
