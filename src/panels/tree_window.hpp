#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "controls/tree_view.hpp"

namespace varnholt::panels {

/// "TreeView, One-Way Command Source.": a tree beside each panel, from which the panel is told where to go.
class Form9 : public controls::Form {
 public:
  explicit Form9(controls::MessageLoop& loop);

  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};
  controls::TreeView TreeView1{*this, "TreeView1"}, TreeView2{*this, "TreeView2"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 2};
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
};

}  // namespace varnholt::panels
