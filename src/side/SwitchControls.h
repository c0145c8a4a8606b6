#pragma once

#include <vector>

class QCheckBox;
class QWidget;

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class PopupMenu;

/// The check boxes of a side window and its controls for user dictionaries, made and placed.
struct SwitchControls {
    SwitchControls(QWidget* window, AnchoredLayout& layout);

    QCheckBox* SyncronizeCB;
    QCheckBox* DontClearCB;
    /// One for each row of the source table.
    std::vector<QCheckBox*> sources;
    BevelButton* UserDicBT;
    PopupMenu* UserDicPU;
};

} // namespace velmarin
