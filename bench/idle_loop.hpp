#pragma once

#include "controls/message_loop.hpp"

namespace varnholt::bench {

/// Nothing is drawn here: a loop that does nothing.
class IdleLoop : public controls::MessageLoop {
 public:
  void giveTurn() override {}
  void runModal(controls::Form&) override {}
  void runBlocking(const std::function<void()>& call, const controls::Meanwhile&) override { call(); }
  void runBeside(std::function<void()> call, std::function<void()> done) override {
    call();
    done();
  }
  controls::MessageAnswer show(const controls::MessageBox&) override { return controls::MessageAnswer::Ok; }
  void quit() override {}
  void later(std::function<void()>) override {}
  void attach(controls::Form&) override {}
  void changed(controls::Form&) override {}
  void detach(controls::Form&) override {}
};

}  // namespace varnholt::bench
