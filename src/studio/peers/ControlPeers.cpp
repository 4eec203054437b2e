// Picks the peer family of a control and draws it with everything it holds now.
#include "studio/peers/ControlPeers.h"

namespace studio {

std::unique_ptr<WidgetPeer> MakeControlPeer(vb::Control& control, PeerHost& host) {
  using Maker = std::unique_ptr<WidgetPeer> (*)(vb::Control&, PeerHost&);
  for (Maker make : {MakeButtonPeer, MakeTextPeer, MakeListPeer, MakeContainerPeer, MakeBarPeer,
                     MakeListViewPeer}) {
    if (auto peer = make(control, host)) {
      control.SetPeer(peer.get());
      return peer;
    }
  }
  return nullptr;
}

}  // namespace studio
