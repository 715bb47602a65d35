// The root of the design tables and what stands around it: the application
// block, a word of all ones, then win_head, in one image so that the block
// stands directly ahead of the root. LK_DEFINE_WIN_HEAD(Tables) defines the
// image over assembled tables (frame/head/assemble.h) and the one exported
// symbol, win_head, at its place inside it.
//
// Contract: used once, in the translation unit that names the modules of
// liblkbase.so; everything but win_head stays hidden (the module's version
// script exports win_head only).
#ifndef WATRIX_FRAME_HEAD_HEAD_IMAGE_H_
#define WATRIX_FRAME_HEAD_HEAD_IMAGE_H_

#include <cstddef>
#include <cstdint>

#include "frame/head/assemble.h"
#include "frame/head/name_list.h"
#include "frame/tables.h"

namespace lk::head {

struct HeadImage {
  ApplicationBlock application;
  std::uintptr_t all_ones;
  WinHead head;
};
static_assert(offsetof(HeadImage, head) == 96, "win_head's alias names this offset");

// The module entry, with the attribute dictionary directly behind it.
struct DictionaryImage {
  ModuleEntry entry;
  const ViewNameRow* views;
};

template <class Tables>
struct HeadParts {
  static constexpr ViewIndex kViewIndex = {"LKBASE", Tables::kViewNames.data()};
  static constexpr DictionaryImage kDictionary = {{"LKBASE", {0, 0, 0}},
                                                  Tables::kViewNames.data()};
};

template <class Tables>
constexpr HeadImage MakeHeadImage(const HeadImage* self) {
  using Parts = HeadParts<Tables>;
  return {{"WATRIX PROD SYS T2.0", "WATRIX", "ORACLE", ".", ",", "DEFAULT", "5101262",
           &runtime_cell, "1252", {0, 0, 0}},
          ~std::uintptr_t{0},
          {Tables::kProcedureTable.data(), Tables::kWindows.data(), &Parts::kDictionary.entry,
           &Parts::kDictionary.views, &shared_cell, &Parts::kViewIndex, kNameList.data(), 0,
           &self->application, 0, 'Y', 'N'}};
}

}  // namespace lk::head

// Defines lk_head_image over `Tables` and win_head inside it.
#define LK_DEFINE_WIN_HEAD(Tables)                                                      \
  extern "C" {                                                                          \
  extern const ::lk::head::HeadImage lk_head_image;                                     \
  __attribute__((used)) constinit const ::lk::head::HeadImage lk_head_image =                   \
      ::lk::head::MakeHeadImage<Tables>(&lk_head_image);                                \
  }                                                                                     \
  asm(".globl win_head\n"                                                               \
      ".type win_head, @object\n"                                                       \
      ".size win_head, 80\n"                                                            \
      ".set win_head, lk_head_image + 96\n")

#endif  // WATRIX_FRAME_HEAD_HEAD_IMAGE_H_
