#pragma once

namespace quorvel {

class TabPanels;
struct BoundControls;

/// Makes the tabs of the six views with their controls, and attaches the faces to them.
void MakePanels(TabPanels& tabs, BoundControls& controls);

}  // namespace quorvel
