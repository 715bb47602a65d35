// The stream pair, export_pack and import_unpack, driven from the
// dictionary: a view written to and read from a ViewStream in the record
// encoding of plan.h.
//
// Pack appends the whole view at stream->size or, when the stream has no
// room for it, nothing at all, since a stream cannot grow and a partial view
// would read as a whole one. Unpack reads from stream->position, checks each
// record's letter and element size against what the dictionary expects, and
// stops at the first record that does not fit; what it has not reached keeps
// its value. Neither function allocates.
#include <algorithm>
#include <cstring>

#include "frame/transport/plan_internal.h"

namespace lk::transport {
namespace {

constexpr u32 kHeaderSize = 1 + 4 + 4;
constexpr char kSkipLetter = '-';
constexpr char kCountLetter = 'B';
constexpr char kFlagLetter = 'C';

// Bytes of one value of a record with this letter and width.
u32 ElementSize(char letter, u32 width) {
  switch (letter) {
    case 'S':
    case 'Y': return width;
    case 'Q': return kTimestampStorage;
    case 'L':
    case kCountLetter: return 4;
    case 'N': return 8;
    case kFlagLetter: return 1;
  }
  return 0;
}

// The count of rows a group packs: its export count, or its limit when the
// export view holds none.
int PackedRows(const GroupPlan& g, const void* view) {
  return ReadCount(view, g.count_location, g.limit, g.limit);
}

u32 PackSize(const ViewPlan& plan, const void* view) {
  u32 size = 0;
  for (int i : plan.singles) size += kHeaderSize + plan.attributes[i].storage;
  for (const GroupPlan& g : plan.groups) {
    const u32 rows = static_cast<u32>(PackedRows(g, view));
    const bool below = rows < static_cast<u32>(g.limit);
    size += kHeaderSize + 4;
    if (rows > 0) size += kHeaderSize + rows;
    if (below) size += kHeaderSize;
    for (int i : g.columns) {
      if (rows > 0) size += kHeaderSize + rows * plan.attributes[i].storage;
      if (below) size += kHeaderSize;
    }
  }
  return size;
}

class Writer {
 public:
  explicit Writer(char* at) : p_(at) {}

  // A record of `count` values, taken `element` bytes each from `values`, or
  // zeros when `values` is null. Zero values append nothing.
  void Values(char letter, u32 width, u32 count, u32 element, const char* values) {
    if (count == 0) return;
    Header(letter, width, count);
    const std::size_t n = static_cast<std::size_t>(count) * element;
    if (values != nullptr) {
      std::memcpy(p_, values, n);
    } else {
      std::memset(p_, 0, n);
    }
    p_ += n;
  }

  void Fill(char letter, u32 count, char value) {
    if (count == 0) return;
    Header(letter, 1, count);
    std::memset(p_, value, count);
    p_ += count;
  }

  void Skip(u32 rows) { Header(kSkipLetter, 0, rows); }

  char* end() const { return p_; }

 private:
  void Header(char letter, u32 width, u32 count) {
    *p_++ = letter;
    std::memcpy(p_, &width, 4);
    std::memcpy(p_ + 4, &count, 4);
    p_ += 8;
  }

  char* p_;
};

class Reader {
 public:
  explicit Reader(const ViewStream* s) : s_(s), pos_(s->position) {}

  // The next record, if it carries `letter` and values of `element` bytes;
  // otherwise the read stops here for good.
  bool Values(char letter, u32 element, u32* count, const char** values) {
    if (!ok_ || s_->data == nullptr || pos_ > s_->size || s_->size - pos_ < kHeaderSize) {
      return Stop();
    }
    const char* p = s_->data + pos_;
    u32 width, n;
    std::memcpy(&width, p + 1, 4);
    std::memcpy(&n, p + 5, 4);
    if (p[0] != letter || ElementSize(p[0], width) != element) return Stop();
    const unsigned long long bytes = static_cast<unsigned long long>(n) * element;
    if (bytes > s_->size - pos_ - kHeaderSize) return Stop();
    *count = n;
    *values = p + kHeaderSize;
    pos_ += kHeaderSize + static_cast<u32>(bytes);
    return true;
  }

  // Passes over a skip record, if one stands next.
  void Skip() {
    if (ok_ && s_->data != nullptr && pos_ <= s_->size && s_->size - pos_ >= kHeaderSize &&
        s_->data[pos_] == kSkipLetter) {
      pos_ += kHeaderSize;
    }
  }

  bool ok() const { return ok_; }
  u32 position() const { return pos_; }

 private:
  bool Stop() {
    ok_ = false;
    return false;
  }

  const ViewStream* s_;
  u32 pos_;
  bool ok_ = true;
};

void Pack(const ViewPlan& plan, const void* view, ViewStream* stream) {
  const u32 need = PackSize(plan, view);
  if (stream->data == nullptr || stream->size > stream->capacity ||
      stream->capacity - stream->size < need) {
    return;
  }
  Writer w(stream->data + stream->size);
  for (int i : plan.singles) {
    const AttributePlan& a = plan.attributes[i];
    w.Values(a.stream_letter, a.stream_width, 1, a.storage,
             a.export_location != 0 ? At(view, a.export_location) : nullptr);
  }
  for (const GroupPlan& g : plan.groups) {
    const int rows = PackedRows(g, view);
    const std::int32_t count = rows;
    w.Values(kCountLetter, 4, 1, 4, reinterpret_cast<const char*>(&count));
    w.Fill(kFlagLetter, static_cast<u32>(rows), 'Y');
    if (rows < g.limit) w.Skip(static_cast<u32>(g.limit - rows));
    for (int i : g.columns) {
      const AttributePlan& a = plan.attributes[i];
      w.Values(a.stream_letter, a.stream_width, static_cast<u32>(rows), a.storage,
               a.export_location != 0 ? At(view, RowOffset(a, a.export_location, 1)) : nullptr);
      if (rows < g.limit) w.Skip(static_cast<u32>(g.limit - rows));
    }
  }
  stream->size = static_cast<u32>(w.end() - stream->data);
}

void Unpack(const ViewPlan& plan, void* view, ViewStream* stream) {
  Reader r(stream);
  u32 n;
  const char* values;
  for (int i : plan.singles) {
    const AttributePlan& a = plan.attributes[i];
    if (!r.Values(a.stream_letter, a.storage, &n, &values)) break;
    if (n >= 1 && a.import_location != 0) std::memcpy(At(view, a.import_location), values, a.storage);
  }
  for (const GroupPlan& g : plan.groups) {
    if (!r.ok() || !r.Values(kCountLetter, 4, &n, &values) || n != 1) break;
    std::int32_t packed;
    std::memcpy(&packed, values, 4);
    const u32 rows = packed > 0 ? static_cast<u32>(packed) : 0;
    const u32 taken = std::min(rows, static_cast<u32>(g.limit));
    WriteCount(view, g.import_count_location, static_cast<int>(taken));
    // The row-present flags are read and dropped.
    if (rows > 0 && !r.Values(kFlagLetter, 1, &n, &values)) break;
    r.Skip();
    for (int i : g.columns) {
      const AttributePlan& a = plan.attributes[i];
      if (rows > 0) {
        if (!r.Values(a.stream_letter, a.storage, &n, &values)) break;
        const u32 keep = std::min(n, static_cast<u32>(g.limit));
        if (a.import_location != 0 && keep > 0) {
          std::memcpy(At(view, RowOffset(a, a.import_location, 1)), values,
                      static_cast<std::size_t>(keep) * a.storage);
        }
      }
      r.Skip();
    }
  }
  stream->position = r.position();
}

}  // namespace
}  // namespace lk::transport

namespace lk {

u32 ExportPackSize(const ViewNameRow& views, const void* export_view) {
  return transport::PackSize(transport::PlanForViews(views), export_view);
}

void ExportPackBy(const ViewNameRow& views, void* export_view, ViewStream* stream) {
  transport::Pack(transport::PlanForViews(views), export_view, stream);
}

void ImportUnpackBy(const ViewNameRow& views, void* import_view, ViewStream* stream) {
  transport::Unpack(transport::PlanForViews(views), import_view, stream);
}

}  // namespace lk
