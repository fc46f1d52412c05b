#pragma once

#include "platform/Url.h"

#include <string_view>

/// The links that open the companion application.
namespace vantel::WidgetLinks {

/// The focus view; also what the builders below fall back to.
const Url& focus();
/// The triage deck.
const Url& triage();
const Url& calendar();
const Url& people();

/// One task. The identifier is percent-encoded as one query item.
Url todo(std::string_view id);

/// A meeting, by way of the companion: the whole meeting link is one query item.
Url join(const Url& meeting);

} // namespace vantel::WidgetLinks
