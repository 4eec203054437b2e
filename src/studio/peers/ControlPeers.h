// studio::MakeControlPeer: the Qt peer for a control of any kind the form engine has.
#pragma once

#include <memory>

#include "studio/peers/WidgetPeer.h"

namespace studio {

// Null for the controls nothing draws (timers, image lists) and for menus, which the form's
// peer draws as its menu bar and popups. Each family's file makes its own kinds.
std::unique_ptr<WidgetPeer> MakeControlPeer(vb::Control& control, PeerHost& host);

std::unique_ptr<WidgetPeer> MakeButtonPeer(vb::Control& control, PeerHost& host);
std::unique_ptr<WidgetPeer> MakeTextPeer(vb::Control& control, PeerHost& host);
std::unique_ptr<WidgetPeer> MakeListPeer(vb::Control& control, PeerHost& host);
std::unique_ptr<WidgetPeer> MakeContainerPeer(vb::Control& control, PeerHost& host);
std::unique_ptr<WidgetPeer> MakeBarPeer(vb::Control& control, PeerHost& host);
std::unique_ptr<WidgetPeer> MakeListViewPeer(vb::Control& control, PeerHost& host);

}  // namespace studio
