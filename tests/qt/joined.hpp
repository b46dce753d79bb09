#pragma once

#include "drawn.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/pictures.hpp"

namespace varnholt::test {

/// Widgets that are joined to controls without a window of the program around them.
class Joined : public testing::Test, protected qt::Host {
 protected:
  void join(controls::Control& control, QWidget& widget) {
    joined.push_back(qt::join(*this, control, widget));
    ASSERT_TRUE(joined.back()) << control.name();
  }
  void TearDown() override { joined.clear(); }
  void draw() {
    for (const auto& adapter : joined)
      adapter->update();
  }

  qt::QtMessageLoop loop;
  qt::Pictures read;
  std::vector<std::unique_ptr<qt::Adapter>> joined;

 private:
  void fromUser(std::function<void()> act) override { act(); }
  bool previewKey(controls::KeyEvent&) override { return false; }
  void focusTaken(controls::Control& control) override { control.form().focusMoved(&control); }
  qt::Pictures& pictures() override { return read; }
  qt::DragAndDrop& dragAndDrop() override { return loop.dragAndDrop(); }
  void afterDrop(std::function<void()> act) override { act(); }
};

}  // namespace varnholt::test
