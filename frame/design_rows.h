// Pieces that the design rows of every module share: the control type of a
// button's ActionControlRow, the one-word button descriptor, and the
// ReturnRows of the two ways a linked procedure comes back.
#ifndef WATRIX_FRAME_DESIGN_ROWS_H_
#define WATRIX_FRAME_DESIGN_ROWS_H_

#include <cstdint>

#include "frame/run_context.h"
#include "frame/tables.h"

namespace lk {

// ActionControlRow.control_type of every button.
inline constexpr u32 kButtonType = 0x00010004;

// A button's ControlDescriptor: the single 16-bit word of its tag.
inline constexpr std::uint16_t kButtonDescriptorWord[] = {kTagButton};
inline constexpr const void* kButton = kButtonDescriptorWord;

// The ReturnRow of a link that comes back on EXIT_RETURN, and on EXIT_CANCEL.
inline constexpr ReturnRow kReturnsOnReturn[] = {{0, 0, EXIT_RETURN, 0, 0, 0}};
inline constexpr ReturnRow kReturnsOnCancel[] = {{0, 0, EXIT_CANCEL, 0, 0, 0}};

}  // namespace lk

#endif  // WATRIX_FRAME_DESIGN_ROWS_H_
