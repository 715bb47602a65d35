// The cascade step service and the pending queues it answers from (see
// cascade_step.h for the queue's semantics).
#include "store/cascade_step.h"

#include <cstring>
#include <unordered_map>
#include <utility>

namespace lk::store {

namespace {

struct Queue {
  std::vector<KeyValue> root_key;
  std::vector<PendingRow> rows;
  std::size_t next = 0;              // the first row not yet presented
  const PendingRow* presented = nullptr;
};

std::unordered_map<const CascadeRecord*, Queue>& Queues() {
  static auto* queues = new std::unordered_map<const CascadeRecord*, Queue>();
  return *queues;
}

void SetResult(CascadeRecord* record, const char* result) {
  std::memcpy(record->result, result, 2);
}

// The layout of a dependent key descriptor: "4.2." and four blanks, n sizes
// of four digits, n fields of name (8) and kind (2).
constexpr std::size_t kHead = 8;
constexpr std::size_t kSizeWidth = 4;
constexpr std::size_t kFieldWidth = 10;

// Reads a four-digit size; -1 if it is not one.
int ParseSize(const char* text) {
  int size = 0;
  for (std::size_t i = 0; i < kSizeWidth; ++i) {
    if (text[i] < '0' || text[i] > '9') return -1;
    size = size * 10 + (text[i] - '0');
  }
  return size;
}

// Lays `key` out in `area` as `descriptor` says; false if it does not fit.
bool PackKey(const char* descriptor, const std::vector<KeyValue>& key, char* area,
             std::size_t area_size) {
  const std::size_t length = std::strlen(descriptor);
  if (length < kHead || std::memcmp(descriptor, "4.2.    ", kHead) != 0) return false;
  const std::size_t per_column = kSizeWidth + kFieldWidth;
  if ((length - kHead) % per_column != 0) return false;
  const std::size_t columns = (length - kHead) / per_column;
  if (columns != key.size()) return false;

  char packed[sizeof(CascadeRecord::message)];
  std::memset(packed, ' ', sizeof packed);
  std::size_t at = 0;
  for (std::size_t i = 0; i < columns; ++i) {
    const int size = ParseSize(descriptor + kHead + i * kSizeWidth);
    const char* kind = descriptor + kHead + columns * kSizeWidth + i * kFieldWidth + 8;
    if (size <= 0 || at + static_cast<std::size_t>(size) > area_size) return false;
    const KeyValue& value = key[i];
    if (std::memcmp(kind, "FL", 2) == 0) {
      if (value.is_text || size != sizeof(double)) return false;
      std::memcpy(packed + at, &value.number, sizeof(double));
    } else if (std::memcmp(kind, "CH", 2) == 0) {
      if (!value.is_text || value.text.size() > static_cast<std::size_t>(size)) return false;
      std::memcpy(packed + at, value.text.data(), value.text.size());
    } else {
      return false;
    }
    at += static_cast<std::size_t>(size);
  }
  std::memcpy(area, packed, area_size);
  return true;
}

}  // namespace

void StartPendingQueue(const CascadeRecord* record, std::vector<KeyValue> root_key,
                       std::vector<PendingRow> rows) {
  if (rows.empty()) {
    Queues().erase(record);
    return;
  }
  Queue& queue = Queues()[record];
  queue.root_key = std::move(root_key);
  queue.rows = std::move(rows);
  queue.next = 0;
  queue.presented = nullptr;
}

const std::vector<KeyValue>* CascadeRootKey(const CascadeRecord* record) {
  auto it = Queues().find(record);
  return it == Queues().end() ? nullptr : &it->second.root_key;
}

std::size_t PendingCount(const CascadeRecord* record) {
  auto it = Queues().find(record);
  if (it == Queues().end()) return 0;
  return it->second.rows.size() - it->second.next;
}

void CascadeStep(HandleA, HandleB, CascadeRecord* record, const char* descriptor) {
  auto it = Queues().find(record);
  Queue* queue = it == Queues().end() ? nullptr : &it->second;

  switch (record->first) {
    case 'N':
      if (queue != nullptr && queue->next < queue->rows.size()) {
        queue->presented = &queue->rows[queue->next++];
        record->rule = queue->presented->rule;
        record->relationship = queue->presented->relationship;
        SetResult(record, "OK");
      } else {
        if (queue != nullptr) Queues().erase(it);
        record->rule = 0;
        record->relationship = 0;
        SetResult(record, "NF");
      }
      return;
    case 'R':
      if (queue != nullptr && queue->presented != nullptr && descriptor != nullptr &&
          PackKey(descriptor, queue->presented->key, record->message,
                  sizeof record->message)) {
        SetResult(record, "OK");
      } else {
        SetResult(record, "RQ");
      }
      return;
    default:
      SetResult(record, "RQ");
      return;
  }
}

}  // namespace lk::store
