// Dialog templates and strings: the text format and the ELF section reader.
#include "host/resources.h"

#include <elf.h>

#include <cstring>
#include <fstream>
#include <sstream>

namespace watrix {

const DialogControl* Dialog::Find(std::uint32_t control_id) const {
  for (const DialogControl& c : controls)
    if (c.id == control_id) return &c;
  return nullptr;
}

const Dialog* Resources::FindDialog(std::uint32_t dialog_id) const {
  auto it = dialogs.find(dialog_id);
  return it == dialogs.end() ? nullptr : &it->second;
}

namespace {

// Splits a line into words; a quoted text is one word, kept with a leading
// '"' so that the caller can tell it from a bare word.
bool Words(std::string_view line, std::vector<std::string>* words, std::string* error) {
  words->clear();
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
      ++i;
      continue;
    }
    if (line[i] == '"') {
      std::string w = "\"";
      ++i;
      bool closed = false;
      while (i < line.size()) {
        if (line[i] == '\\' && i + 1 < line.size()) {
          w.push_back(line[i + 1]);
          i += 2;
        } else if (line[i] == '"') {
          closed = true;
          ++i;
          break;
        } else {
          w.push_back(line[i++]);
        }
      }
      if (!closed) {
        *error = "unterminated text";
        return false;
      }
      words->push_back(std::move(w));
    } else {
      std::size_t j = i;
      while (j < line.size() && line[j] != ' ' && line[j] != '\t' && line[j] != '\r') ++j;
      words->emplace_back(line.substr(i, j - i));
      i = j;
    }
  }
  return true;
}

bool Number(const std::string& word, long* value) {
  if (word.empty() || word[0] == '"') return false;
  char* end = nullptr;
  *value = std::strtol(word.c_str(), &end, 0);
  return *end == '\0';
}

bool IsText(const std::string& w) { return !w.empty() && w[0] == '"'; }

}  // namespace

bool ParseResources(std::string_view text, Resources* out, std::string* error) {
  enum { kTop, kDialog, kStrings } state = kTop;
  Dialog dialog;
  std::vector<std::string> w;
  int line_number = 0;
  std::size_t start = 0;
  auto fail = [&](const std::string& why) {
    *error = "line " + std::to_string(line_number) + ": " + why;
    return false;
  };
  while (start <= text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(start, end - start);
    start = end + 1;
    ++line_number;
    std::string why;
    if (!Words(line, &w, &why)) return fail(why);
    if (w.empty() || w[0][0] == '#') continue;
    long n[5];
    if (state == kTop) {
      if (w[0] == "dialog") {
        if (w.size() != 7 || !Number(w[1], &n[0]) || !IsText(w[2]) || !Number(w[3], &n[1]) ||
            !Number(w[4], &n[2]) || w[5] != "style" || !Number(w[6], &n[3]))
          return fail("dialog needs: dialog ID \"TITLE\" W H style STYLE");
        dialog = Dialog{};
        dialog.id = static_cast<std::uint32_t>(n[0]);
        dialog.title = w[2].substr(1);
        dialog.width = static_cast<int>(n[1]);
        dialog.height = static_cast<int>(n[2]);
        dialog.style = static_cast<std::uint32_t>(n[3]);
        state = kDialog;
      } else if (w[0] == "strings") {
        state = kStrings;
      } else {
        return fail("unknown item '" + w[0] + "'");
      }
    } else if (state == kDialog) {
      if (w[0] == "end") {
        if (out->dialogs.count(dialog.id)) return fail("dialog defined twice");
        out->dialogs[dialog.id] = std::move(dialog);
        state = kTop;
        continue;
      }
      static const char* const kKinds[] = {"button", "static", "group", "edit", "check",
                                           "radio",  "list",   "combo", "picture"};
      bool known = false;
      for (const char* k : kKinds) known = known || w[0] == k;
      if (!known) return fail("unknown control kind '" + w[0] + "'");
      DialogControl c;
      c.kind = w[0];
      std::size_t at = 1;
      if (w.size() < 2 || !Number(w[at++], &n[0])) return fail("control needs an id");
      c.id = static_cast<std::uint32_t>(n[0]);
      if (at < w.size() && IsText(w[at])) c.text = w[at++].substr(1);
      for (int k = 0; k < 4; ++k)
        if (at >= w.size() || !Number(w[at++], &n[1 + k])) return fail("control needs X Y W H");
      c.x = static_cast<int>(n[1]);
      c.y = static_cast<int>(n[2]);
      c.w = static_cast<int>(n[3]);
      c.h = static_cast<int>(n[4]);
      for (; at < w.size(); ++at) {
        if (w[at] == "center") {
          c.center = true;
        } else if (w[at] == "default") {
          c.is_default = true;
        } else if (w[at] == "multiple") {
          c.multiple = true;
        } else if (w[at] == "attribute" && at + 1 < w.size() && !IsText(w[at + 1])) {
          c.attribute = w[++at];
        } else {
          return fail("unknown control flag '" + w[at] + "'");
        }
      }
      if (dialog.Find(c.id) != nullptr) return fail("control id used twice");
      dialog.controls.push_back(std::move(c));
    } else {
      if (w[0] == "end") {
        state = kTop;
        continue;
      }
      if (w.size() != 2 || !Number(w[0], &n[0]) || !IsText(w[1]))
        return fail("string needs: ID \"TEXT\"");
      out->strings[static_cast<std::uint32_t>(n[0])] = w[1].substr(1);
    }
  }
  if (state != kTop) return fail("missing end");
  return true;
}

bool ReadElfSection(const std::string& path, const char* name, std::string* out,
                    std::string* error) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    *error = "cannot open " + path;
    return false;
  }
  std::stringstream buffer;
  buffer << file.rdbuf();
  const std::string image = buffer.str();
  if (image.size() < sizeof(Elf64_Ehdr) || std::memcmp(image.data(), ELFMAG, SELFMAG) != 0 ||
      image[EI_CLASS] != ELFCLASS64) {
    *error = path + " is not a 64-bit ELF file";
    return false;
  }
  Elf64_Ehdr eh;
  std::memcpy(&eh, image.data(), sizeof eh);
  const std::size_t table_end = eh.e_shoff + std::size_t{eh.e_shnum} * sizeof(Elf64_Shdr);
  if (eh.e_shoff == 0 || table_end > image.size() || eh.e_shstrndx >= eh.e_shnum) {
    *error = path + " has no section table";
    return false;
  }
  auto section = [&](int i) {
    Elf64_Shdr sh;
    std::memcpy(&sh, image.data() + eh.e_shoff + i * sizeof(Elf64_Shdr), sizeof sh);
    return sh;
  };
  const Elf64_Shdr names = section(eh.e_shstrndx);
  for (int i = 0; i < eh.e_shnum; ++i) {
    const Elf64_Shdr sh = section(i);
    if (names.sh_offset + sh.sh_name >= image.size()) continue;
    const char* section_name = image.data() + names.sh_offset + sh.sh_name;
    if (std::strcmp(section_name, name) != 0) continue;
    if (sh.sh_offset + sh.sh_size > image.size()) break;
    out->assign(image.data() + sh.sh_offset, sh.sh_size);
    while (!out->empty() && out->back() == '\0') out->pop_back();
    return true;
  }
  *error = path + " has no section " + name;
  return false;
}

}  // namespace watrix
