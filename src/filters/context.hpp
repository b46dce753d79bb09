#pragma once

#include "core/program.hpp"
#include "panels/dispatcher.hpp"
#include "panels/form1.hpp"
#include "panels/listing.hpp"
#include "panels/selection.hpp"
#include "panels/view_choices.hpp"

namespace varnholt::filters {

/// What the filters work with.
struct Context {
  panels::Form1& form;
  core::Program& program;
  panels::Dispatcher& dispatcher;
  panels::Listing& listing;
  panels::Selection& selection;
  panels::ViewChoices& choices;
};

}  // namespace varnholt::filters
