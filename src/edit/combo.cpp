#include "core/grid_object.h"
#include "core/upcalls.h"
#include "platform/memory.h"

void ReleaseComboState(ComboListState& state)
{
    for (int item = 0; item < state.ComboCount; ++item) {
        FreeBlock(state.ComboKeys[item]);
        FreeBlock(state.ComboTexts[item]);
    }
    FreeAndClear(state.ComboKeys);
    FreeAndClear(state.ComboTexts);
    FreeAndClear(state.ListText);
    state.ComboCount = 0;
}

void ReleaseEditorList(Grid&) {}
