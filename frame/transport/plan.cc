// Building the transport plans: resolving attribute names against the
// dictionary and checking that the tables keep the conventions of plan.h.
//
// Every fault found here is a fault of the tables: it is printed to stderr
// with the name concerned and the process aborts. Plans are cached by the
// address of what they were built from and never freed.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unordered_map>

#include "frame/transport/plan_internal.h"

namespace lk::transport {
namespace {

[[noreturn]] void Fault(const char* what, const char* name, const char* where) {
  std::fprintf(stderr, "view transport: %s: %s (in %s)\n", what, name ? name : "(null)",
               where ? where : "(null)");
  std::fflush(stderr);
  std::abort();
}

// The kind of an attribute by its type letter, or a fault.
Kind KindOf(const AttributeRow& row, const char* where) {
  if (row.type == nullptr || row.type->type_letter == nullptr) {
    Fault("attribute without a type", row.attribute_name, where);
  }
  switch (row.type->type_letter[0]) {
    case 'S': return Kind::kFixedText;
    case 'Y': return Kind::kVaryingText;
    case 'Q': return Kind::kTimestamp;
    case 'L': return Kind::kLong;
    case 'B':
    case 'I': return Kind::kDouble;
  }
  Fault("unknown type letter", row.attribute_name, where);
}

void CheckStorage(const AttributePlan& a, const char* where) {
  bool ok = true;
  switch (a.kind) {
    case Kind::kFixedText:
    case Kind::kVaryingText: ok = a.storage >= 1; break;
    case Kind::kTimestamp: ok = a.storage == kTimestampStorage; break;
    case Kind::kLong: ok = a.storage == 4; break;
    case Kind::kDouble: ok = a.storage == 8; break;
  }
  if (!ok) Fault("storage does not fit the type", a.row->attribute_name, where);
}

void SetStreamForm(AttributePlan* a) {
  const u32 digits = a->row->type->length & 0xFFFF;
  switch (a->kind) {
    case Kind::kFixedText: a->stream_letter = 'S'; a->stream_width = a->storage; break;
    case Kind::kVaryingText: a->stream_letter = 'Y'; a->stream_width = a->storage; break;
    case Kind::kTimestamp: a->stream_letter = 'Q'; a->stream_width = kTimestampStorage; break;
    case Kind::kLong: a->stream_letter = 'L'; a->stream_width = 4; break;
    case Kind::kDouble:
      a->stream_letter = 'N';
      a->stream_width = digits != 0 ? digits : (a->row->type->type_letter[0] == 'I' ? 3 : 12);
      break;
  }
}

std::unique_ptr<ViewPlan> BuildViewPlan(const ViewNameRow& views) {
  const char* where = views.key;
  auto plan = std::make_unique<ViewPlan>();
  plan->views = &views;
  if (views.view_rows == nullptr) Fault("no view rows", views.key, where);

  int view_count = 0;
  while (views.view_rows[view_count].view_name != nullptr) ++view_count;

  // The group of each ViewRow, from the GroupRow ranges.
  std::vector<int> group_of(view_count, -1);
  if (views.group_rows != nullptr) {
    for (const GroupRow* g = views.group_rows;; ++g) {
      if (g->group_name == nullptr) Fault("group rows not ended by \"*\"", views.key, where);
      if (std::strcmp(g->group_name, "*") == 0) break;
      const int low = static_cast<int>(g->view_range & 0xFFFF);
      const int high = static_cast<int>(g->view_range >> 16);
      if (low >= high || high > view_count) Fault("group view range", g->group_name, where);
      GroupPlan gp{};
      gp.row = g;
      gp.limit = static_cast<int>(views.view_rows[low].occurs);
      gp.count_location = g->count_location;
      gp.import_count_location = g->import_count_location;
      for (int v = low; v < high; ++v) {
        if (views.view_rows[v].occurs == 0 ||
            static_cast<int>(views.view_rows[v].occurs) != gp.limit) {
          Fault("group view rows differ in occurs", views.view_rows[v].view_name, where);
        }
        if (group_of[v] != -1) Fault("view row in two groups", views.view_rows[v].view_name, where);
        group_of[v] = static_cast<int>(plan->groups.size());
      }
      plan->groups.push_back(std::move(gp));
    }
  }

  for (int v = 0; v < view_count; ++v) {
    const ViewRow& vr = views.view_rows[v];
    if (vr.occurs != 0 && group_of[v] == -1) Fault("group view row without a group", vr.view_name, where);
    if (vr.attributes == nullptr) continue;
    for (const AttributeRow* r = vr.attributes; r->attribute_name != nullptr; ++r) {
      AttributePlan a{};
      a.view = &vr;
      a.row = r;
      a.kind = KindOf(*r, where);
      a.storage = r->storage;
      a.import_location = r->import_location;
      a.export_location = r->export_location;
      a.group = group_of[v];
      CheckStorage(a, where);
      SetStreamForm(&a);
      const u32 display_room =
          a.group < 0 ? kDisplayWidth
                      : kDisplayWidth * static_cast<u32>(plan->groups[a.group].limit + 1);
      if (a.export_location != 0 && a.export_location < display_room) {
        Fault("no room for display bytes before the export value", r->attribute_name, where);
      }
      const int index = static_cast<int>(plan->attributes.size());
      plan->attributes.push_back(a);
      if (a.group < 0) {
        plan->singles.push_back(index);
      } else {
        plan->groups[a.group].columns.push_back(index);
      }
    }
  }
  return plan;
}

// The index of the attribute named view_name + attribute_name, or a fault.
int Find(const ViewPlan& plan, const char* name) {
  if (name == nullptr) Fault("missing attribute name", name, plan.views->key);
  for (std::size_t i = 0; i < plan.attributes.size(); ++i) {
    const AttributePlan& a = plan.attributes[i];
    const std::size_t n = std::strlen(a.view->view_name);
    if (std::strncmp(name, a.view->view_name, n) == 0 &&
        std::strcmp(name + n, a.row->attribute_name) == 0) {
      return static_cast<int>(i);
    }
  }
  Fault("attribute not in the dictionary", name, plan.views->key);
}

int FindWithImport(const ViewPlan& plan, const char* name) {
  const int i = Find(plan, name);
  if (plan.attributes[i].import_location == 0) Fault("no import location", name, plan.views->key);
  return i;
}

int FindWithExport(const ViewPlan& plan, const char* name) {
  const int i = Find(plan, name);
  if (plan.attributes[i].export_location == 0) Fault("no export location", name, plan.views->key);
  return i;
}

const AttributeType* FieldType(const void* descriptor) {
  return static_cast<const FieldDescriptor*>(descriptor)->type;
}

const PermittedRow* OptionLiterals(const void* descriptor, std::uint16_t tag) {
  const ValueDictionary* values =
      tag == kTagCheck ? static_cast<const CheckDescriptor*>(descriptor)->values
                       : static_cast<const ItemDescriptor*>(descriptor)->values;
  return values != nullptr ? values->permitted : nullptr;
}

std::unique_ptr<WindowPlan> BuildWindowPlan(const WindowBinding& binding) {
  const char* where = binding.window != nullptr ? binding.window->name : "(no window)";
  if (binding.window == nullptr || binding.views == nullptr || binding.fields == nullptr ||
      binding.window->controls == nullptr) {
    Fault("incomplete window binding", where, where);
  }
  auto plan = std::make_unique<WindowPlan>();
  plan->view = &PlanForViews(*binding.views);
  const ViewPlan& vp = *plan->view;

  for (int k = 0; binding.window->controls[k].control_id != 0; ++k) {
    const ControlRow& control = binding.window->controls[k];
    const FieldBinding& field = binding.fields[k];
    if (field.control_id != control.control_id) {
      Fault("field binding out of control order", control.control_name, where);
    }
    FieldPlan fp{};
    fp.kind = FieldKind::kNone;
    fp.index = k;
    fp.attribute = -1;
    fp.flag = -1;
    fp.group = -1;
    if (control.descriptor == nullptr) {
      plan->fields.push_back(std::move(fp));
      continue;
    }
    const std::uint16_t tag = DescriptorTag(control.descriptor);
    switch (tag) {
      case kTagEntry:
      case kTagProtected:
      case kTagMultiline: {
        if (field.attribute == nullptr) break;
        fp.kind = FieldKind::kEntry;
        fp.attribute = Find(vp, field.attribute);
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (a.group >= 0) Fault("entry field on a group column", field.attribute, where);
        fp.field_type = FieldType(control.descriptor);
        if (fp.field_type == nullptr) fp.field_type = a.row->type;
        fp.text_width = FieldTextWidth(*fp.field_type);
        break;
      }
      case kTagRadio:
      case kTagDropDown:
      case kTagCheck: {
        if (field.attribute == nullptr) break;
        fp.kind = FieldKind::kOption;
        fp.attribute = Find(vp, field.attribute);
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (a.group >= 0) Fault("option control on a group column", field.attribute, where);
        if (!IsText(a.kind)) Fault("option control on a value that is no text", field.attribute, where);
        fp.permitted = OptionLiterals(control.descriptor, tag);
        if (fp.permitted == nullptr) Fault("option control without values", field.attribute, where);
        break;
      }
      case kTagList:
      case kTagColumnDropDown: {
        if (field.columns == nullptr) break;
        fp.kind = FieldKind::kList;
        u32 size = 0;
        for (const char* const* c = field.columns; *c != nullptr; ++c) {
          const int i = FindWithExport(vp, *c);
          const AttributePlan& a = vp.attributes[i];
          if (a.group < 0) Fault("list column is no group column", *c, where);
          if (fp.group < 0) fp.group = a.group;
          if (a.group != fp.group) Fault("list columns of two groups", *c, where);
          fp.columns.push_back(i);
          size += kDisplayWidth + a.storage;
        }
        if (fp.columns.empty()) Fault("list without columns", control.control_name, where);
        if (field.flag == nullptr) Fault("list without a row flag", control.control_name, where);
        fp.flag = FindWithExport(vp, field.flag);
        if (vp.groups[fp.group].count_location == 0) {
          Fault("list group without an export count", control.control_name, where);
        }
        const AttributePlan& flag = vp.attributes[fp.flag];
        if (flag.group != fp.group || !IsText(flag.kind) || flag.storage < 1) {
          Fault("row flag is no text column of the list's group", field.flag, where);
        }
        const u32 declared = static_cast<const ListDescriptor*>(control.descriptor)->size_tag >> 16;
        if (size != declared) Fault("list row size differs from its columns", control.control_name, where);
        if (size > kMaxRowSize) Fault("list row too long", control.control_name, where);
        fp.row_size = size;
        break;
      }
      default:
        break;
    }
    plan->fields.push_back(std::move(fp));
  }
  return plan;
}

// A pair of attributes that a flow may copy between.
void CheckPair(const ViewPlan& from_plan, int from, const ViewPlan& to_plan, int to,
               const char* name) {
  const AttributePlan& a = from_plan.attributes[from];
  const AttributePlan& b = to_plan.attributes[to];
  if ((a.group < 0) != (b.group < 0)) Fault("flow pairs a group column with a single", name, to_plan.views->key);
  const bool same = a.kind == b.kind || (IsText(a.kind) && IsText(b.kind));
  if (!same) Fault("flow pairs values of different types", name, to_plan.views->key);
}

std::unique_ptr<FlowPlan> BuildFlowPlan(const FlowBinding& flow) {
  if (flow.source_views == nullptr || flow.target_views == nullptr) {
    Fault("flow binding without views", "", "flow");
  }
  auto plan = std::make_unique<FlowPlan>();
  plan->source = &PlanForViews(*flow.source_views);
  plan->target = &PlanForViews(*flow.target_views);
  if (flow.send != nullptr) {
    for (const FlowPair* p = flow.send; p->from != nullptr || p->to != nullptr; ++p) {
      PairPlan pp{FindWithExport(*plan->source, p->from), FindWithImport(*plan->target, p->to)};
      CheckPair(*plan->source, pp.source, *plan->target, pp.target, p->to);
      plan->send.push_back(pp);
    }
  }
  if (flow.receive != nullptr) {
    for (const FlowPair* p = flow.receive; p->from != nullptr || p->to != nullptr; ++p) {
      PairPlan pp{FindWithImport(*plan->source, p->from), FindWithExport(*plan->target, p->to)};
      CheckPair(*plan->target, pp.target, *plan->source, pp.source, p->from);
      plan->receive.push_back(pp);
    }
  }
  return plan;
}

int plans_built = 0;

template <typename Key, typename Plan, typename Build>
const Plan& Cached(const Key& key, Build build) {
  static std::unordered_map<const Key*, std::unique_ptr<Plan>> cache;
  auto it = cache.find(&key);
  if (it != cache.end()) return *it->second;
  std::unique_ptr<Plan> plan = build(key);
  ++plans_built;
  const Plan& ref = *plan;
  cache.emplace(&key, std::move(plan));
  return ref;
}

}  // namespace

const ViewPlan& PlanForViews(const ViewNameRow& views) {
  return Cached<ViewNameRow, ViewPlan>(views, BuildViewPlan);
}

const WindowPlan& PlanForWindow(const WindowBinding& binding) {
  return Cached<WindowBinding, WindowPlan>(binding, BuildWindowPlan);
}

const FlowPlan& PlanForFlow(const FlowBinding& flow) {
  return Cached<FlowBinding, FlowPlan>(flow, BuildFlowPlan);
}

int PlansBuilt() { return plans_built; }

}  // namespace lk::transport

namespace lk {

void PrepareWindow(const WindowBinding& binding) { transport::PlanForWindow(binding); }
void PrepareViews(const ViewNameRow& views) { transport::PlanForViews(views); }
void PrepareFlow(const FlowBinding& flow) { transport::PlanForFlow(flow); }

u32 FieldTextWidth(const AttributeType& type) {
  if (type.picture != nullptr && type.picture[0] != '\0') {
    return static_cast<u32>(std::strlen(type.picture));
  }
  const char letter = type.type_letter != nullptr ? type.type_letter[0] : 'S';
  switch (letter) {
    case 'Q': return 20;
    case 'L':
    case 'B':
    case 'I': return kNumberFieldWidth;
  }
  const u32 length = type.length & 0xFFFF;
  if (length != 0) return length;
  return type.display_width > 0 ? type.display_width - 1 : 0;
}

}  // namespace lk
