#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"

#include <string>

namespace varnholt::tools {

/// The about box: the program's name, its version and its licence.
class form8 : public controls::Form {
 public:
  form8(controls::MessageLoop& loop, const std::string& version);

  controls::Label Label1{*this, "Label1"};  ///< name and version
  controls::Label Label2{*this, "Label2"};  ///< what it is, and the licence
  controls::Button Command1{*this, "Command1"};
};

}  // namespace varnholt::tools
