// Draws the host's windows as desktop dialogs. Every size comes in dialog
// units and is drawn on one fixed scale (DLU_X, DLU_Y pixels per unit), so a
// window keeps the proportions it was designed with.
//
// Drawing is incremental: a window that keeps its controls keeps its
// elements, and only values, states and texts change; a list redraws only
// the rows that changed. A button that the mouse is pressing, a field that
// has the cursor and a list's scroll position thus survive the answer to an
// event.

import { parseLabel, cancelButton, caretOf } from './keys.js';

/** @typedef {import('./api.js').Control} Control */
/** @typedef {import('./api.js').Win} Win */

/** Pixels per horizontal dialog unit. */
export const DLU_X = 1.5;
/** Pixels per vertical dialog unit. */
export const DLU_Y = 1.75;

/** Where the first primary window stands, and how far each next one steps. */
const ORIGIN = 16;
const CASCADE = 24;
/** Height of a list row and of a list's heading, in pixels. */
const ROW_PX = 15;
const HEAD_PX = 17;
/** The height of a closed combo box, in dialog units. */
const COMBO_DLU = 12;
/** The smallest type a label is shrunk to when its text does not fit. */
const MIN_FONT_PX = 8;
/** A static at least this tall (in dialog units, two lines) wraps its text. */
const WRAP_DLU = 16;

const FIELD_TYPES = new Set(['edit', 'multiline', 'combo', 'radio', 'check']);

/**
 * Whether the user can change the control's value, so that it goes back to
 * the host in an event's `values`.
 * @param {Control} c
 */
export function isField(c) {
  return FIELD_TYPES.has(c.type);
}

/**
 * @typedef {{
 *   el: HTMLElement, client: HTMLElement, title: HTMLElement,
 *   closeBox: HTMLButtonElement, backdrop: HTMLElement|null,
 *   sig: string, controls: Map<number, HTMLElement>, data: Map<number, ListDrawn>
 * }} WinView
 * @typedef {{isDirty: (win: string, id: number) => boolean}} RenderOptions
 */

/** @type {WeakMap<HTMLElement, Map<string, WinView>>} */
const registry = new WeakMap();

/** @param {number} v @returns {string} */
const px = (v) => `${Math.round(v * 100) / 100}px`;

/**
 * Fills `el` with a label, its mnemonic letter underlined.
 * @param {HTMLElement} el
 * @param {string|null|undefined} label
 */
function setLabel(el, label) {
  const { parts } = parseLabel(label);
  el.replaceChildren(
    ...parts.map((p) => {
      if (!p.underline) return document.createTextNode(p.text);
      const u = document.createElement('u');
      u.textContent = p.text;
      return u;
    }),
  );
}

/**
 * What decides whether a window can be updated in place: its kind, size and
 * the identity, type and place of every control.
 * @param {Win} w
 */
function signature(w) {
  return [
    w.kind,
    w.width,
    w.height,
    ...w.controls.map((c) => `${c.id}:${c.type}:${c.x},${c.y},${c.w},${c.h}`),
  ].join('|');
}

/**
 * @param {Control} c
 * @param {HTMLElement} el
 */
function place(c, el) {
  el.style.left = px(c.x * DLU_X);
  el.style.top = px(c.y * DLU_Y);
  el.style.width = px(c.w * DLU_X);
  const h = c.type === 'combo' ? Math.min(c.h, COMBO_DLU) : c.h;
  el.style.height = px(h * DLU_Y);
}

/**
 * Creates the element of one control, without its state.
 * @param {Win} w
 * @param {Control} c
 * @returns {HTMLElement}
 */
function createControl(w, c) {
  /** @type {HTMLElement} */
  let el;
  switch (c.type) {
    case 'edit':
    case 'readonly': {
      const input = document.createElement('input');
      input.type = 'text';
      input.autocomplete = 'off';
      input.spellcheck = false;
      el = input;
      break;
    }
    case 'multiline': {
      const ta = document.createElement('textarea');
      ta.spellcheck = false;
      el = ta;
      break;
    }
    case 'combo':
      el = document.createElement('select');
      break;
    case 'radio':
      el = document.createElement('div');
      el.setAttribute('role', 'radiogroup');
      break;
    case 'check': {
      el = document.createElement('label');
      const box = document.createElement('input');
      box.type = 'checkbox';
      const cap = document.createElement('span');
      cap.className = 'cap';
      el.append(box, cap);
      break;
    }
    case 'list': {
      el = document.createElement('div');
      el.tabIndex = 0;
      el.setAttribute('role', 'listbox');
      const head = document.createElement('div');
      head.className = 'list-head';
      const body = document.createElement('div');
      body.className = 'list-body';
      // The list itself takes the cursor; its scrolling body is no tab stop.
      body.tabIndex = -1;
      el.append(head, body);
      break;
    }
    case 'button':
    case 'picture': {
      const b = document.createElement('button');
      b.type = 'button';
      el = b;
      break;
    }
    case 'group': {
      el = document.createElement('fieldset');
      el.append(document.createElement('legend'));
      break;
    }
    default:
      // static, and any type this page does not know: shown as text
      el = document.createElement('div');
      break;
  }
  el.classList.add('ctl', `ctl-${c.type}`);
  el.dataset.control = String(c.id);
  el.dataset.type = c.type;
  if (c.name) el.dataset.name = c.name;
  el.id = `c-${w.name}-${c.id}`;
  place(c, el);
  return el;
}

/**
 * The caption of a picture button: an arrow where it pages up or down.
 * @param {Control} c
 */
function pictureCaption(c) {
  const word = `${c.keyword ?? ''} ${parseLabel(c.label).plain} ${c.name ?? ''}`.toUpperCase();
  if (/\b(UP|PREV|PREVIOUS|PAGEUP|PGUP)\b/.test(word)) return '\u25B2';
  if (/\b(DOWN|NEXT|PAGEDOWN|PGDN)\b/.test(word)) return '\u25BC';
  return null;
}

/**
 * The value a check box shows when it is ticked, and when it is not.
 * @param {Control} c
 */
function checkValues(c) {
  const opts = c.options ?? [];
  return { on: opts[0]?.value ?? 'Y', off: opts[1]?.value ?? '' };
}

/**
 * Reads what the user has typed or chosen in a field, as the host wants it
 * back: a combo box or radio group its option value, a check box the value
 * of its state.
 * @param {HTMLElement} el
 * @param {Control} c
 * @returns {string}
 */
export function readValue(el, c) {
  switch (c.type) {
    case 'combo':
      return /** @type {HTMLSelectElement} */ (el).selectedIndex < 0
        ? ''
        : /** @type {HTMLSelectElement} */ (el).value;
    case 'radio': {
      const on = /** @type {HTMLInputElement|null} */ (el.querySelector('input:checked'));
      return on ? on.value : '';
    }
    case 'check': {
      const box = /** @type {HTMLInputElement} */ (el.querySelector('input'));
      const v = checkValues(c);
      return box.checked ? v.on : v.off;
    }
    default:
      return /** @type {HTMLInputElement} */ (el).value;
  }
}

/**
 * Lays out the radio buttons of a group in its box: one under the other
 * where the box is tall enough, else side by side.
 * @param {HTMLElement} el
 * @param {Win} w
 * @param {Control} c
 */
function buildRadios(el, w, c) {
  const opts = c.options ?? [];
  const vertical = opts.length > 0 && c.h / opts.length >= 9;
  el.classList.toggle('vertical', vertical);
  el.replaceChildren(
    ...opts.map((o) => {
      const lab = document.createElement('label');
      const r = document.createElement('input');
      r.type = 'radio';
      r.name = `r-${w.name}-${c.id}`;
      r.value = o.value;
      const cap = document.createElement('span');
      cap.className = 'cap';
      setLabel(cap, o.text);
      lab.append(r, cap);
      return lab;
    }),
  );
}

/**
 * The left edge and width of each list column, in dialog units from the
 * list's left side. `right` is the column's right edge; the last column runs
 * to the list's right side when its edge falls short of it.
 * @param {Control} c
 */
function columnSpans(c) {
  const cols = c.columns ?? [];
  let left = 0;
  return cols.map((col, i) => {
    let right = col.right;
    if (i === cols.length - 1 && right < c.w) right = c.w;
    if (right <= left) right = left + 20;
    const span = { left, width: right - left, align: col.align };
    left = right;
    return span;
  });
}

/**
 * @param {string} align "L", "R" or "C"
 */
function textAlign(align) {
  if (align === 'R') return 'right';
  if (align === 'C') return 'center';
  return 'left';
}

/**
 * The geometry of every list on the page, in one style sheet of the page's
 * own: a rule per list (by its element id) places its columns' cells by class
 * (`c0`, `c1`, ...) and sizes its rows. Thousands of cells then share a few
 * rules instead of carrying a style each.
 * @type {Map<string, string>} list element id -> its rules
 */
const listRules = new Map();
const listSheet = new CSSStyleSheet();
document.adoptedStyleSheets = [...document.adoptedStyleSheets, listSheet];

/**
 * Sets (or with `css` null drops) the rules under `key`: a list's element id
 * for its columns and rows, the id and " chunks" for its chunks.
 * @param {string} key
 * @param {string|null} css
 */
function setListRules(key, css) {
  if (css === null ? !listRules.has(key) : listRules.get(key) === css) return;
  if (css === null) listRules.delete(key);
  else listRules.set(key, css);
  listSheet.replaceSync([...listRules.values()].join('\n'));
}

/**
 * The rules that place the columns of a list and size its rows.
 * @param {string} id the list's element id
 * @param {{left: number, width: number, align: string}[]} spans
 * @param {number} full the width of a row, in dialog units
 */
function listCss(id, spans, full) {
  const at = `#${CSS.escape(id)}`;
  return [
    `${at} .list-row { width: ${px(full * DLU_X)}; height: ${ROW_PX}px; }`,
    ...spans.map(
      (s, i) =>
        `${at} .c${i} { left: ${px(s.left * DLU_X)}; width: ${px(s.width * DLU_X)}; text-align: ${textAlign(s.align)}; }`,
    ),
  ].join('\n');
}

/** The width of a list's rows, in CSS pixels. @type {WeakMap<HTMLElement, number>} */
const rowWidths = new WeakMap();

/** Rows in a chunk: the browser lays out and paints a chunk only near the view. */
const CHUNK_ROWS = 50;

/**
 * The rule for the chunks of a list's rows. A chunk is drawn on its own
 * (`content-visibility: auto`, style.css), and the browser puts such a box on
 * a whole device pixel; a list whose left or top edge falls between pixels
 * would then show its rows' text moved by a fraction of a pixel. So a chunk
 * starts that fraction (`fx`, `fy`, in CSS pixels) up and to the left of
 * where its rows start, on a whole pixel, and a padding of the same fraction
 * keeps the rows where they would stand without chunks. Chunks overlap their
 * neighbour by `fy`, with nothing drawn there.
 * @param {string} id the list's element id
 * @param {number} width of a row, in CSS pixels
 * @param {number} fx
 * @param {number} fy
 */
function chunkCss(id, width, fx, fy) {
  const f = (/** @type {number} */ v) => `${Math.round(v * 1e4) / 1e4}px`;
  return (
    `#${CSS.escape(id)} .list-chunk { width: ${f(width + fx)}; ` +
    `margin: ${f(-fy)} 0 0 ${f(-fx)}; padding: ${f(fy)} 0 0 ${f(fx)}; }`
  );
}

/**
 * Brings the rule for a list's chunks up to date with where its rows start
 * on the screen's pixels. Reads the layout: called when the rows are
 * drawn, after all else that reads it.
 * @param {HTMLElement} el the list
 * @param {HTMLElement} body its scrolling body
 */
function alignChunks(el, body) {
  const box = body.getBoundingClientRect();
  const dpr = window.devicePixelRatio || 1;
  const frac = (/** @type {number} */ v) => (v * dpr - Math.floor(v * dpr)) / dpr;
  const width = rowWidths.get(el) ?? 0;
  setListRules(`${el.id} chunks`, chunkCss(el.id, width, frac(box.left), frac(box.top)));
}

/** @type {Record<string, string>} */
const ENTITY = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;' };
/** @param {string} s */
const esc = (s) => (/[&<>"]/.test(s) ? s.replace(/[&<>"]/g, (ch) => ENTITY[ch]) : s);
/**
 * Characters that the HTML parser would not keep as they are (it turns a
 * carriage return into a line feed and drops NUL): a cell with one is given
 * its text through the DOM instead.
 */
const UNPARSED = /[\r\0]/;

/**
 * @typedef {{rows: import('./api.js').ListRow[], columns: number}} ListDrawn
 *   what a list last drew: its rows, and in how many columns
 */

/**
 * The markup of one list row.
 * @param {string} listId
 * @param {import('./api.js').ListRow} r
 * @param {number} columns
 */
function rowHtml(listId, r, columns) {
  let html = `<div class="list-row${r.selected ? ' selected' : ''}" id="${esc(listId)}-r${r.row}" data-row="${r.row}" role="option" aria-selected="${!!r.selected}">`;
  for (let i = 0; i < columns; i++) {
    const text = r.cells[i] ?? '';
    html += `<span class="list-cell c${i}">${UNPARSED.test(text) ? '' : esc(text)}</span>`;
  }
  return `${html}</div>`;
}

/** List bodies with chunks still drawn only near the view. @type {Set<HTMLElement>} */
const undrawn = new Set();

/**
 * Draws the chunks of a list in full once the page is idle, that is once the
 * frame that shows the rows in sight is painted. The first frame of a long
 * list thus lays out and paints only those rows; the next lays out the rest,
 * and from then on every row is there as in a short list: for assistive
 * technology, and for a program that scrolls to a row and clicks it at
 * once, as test drivers do.
 * @param {HTMLElement} body
 */
function drawWhenIdle(body) {
  if (undrawn.size === 0) {
    const later =
      window.requestIdleCallback?.bind(window) ??
      ((/** @type {() => void} */ f) => window.setTimeout(f, 0));
    later(() => {
      for (const b of undrawn) {
        if (!b.isConnected) continue;
        for (const chunk of b.querySelectorAll(':scope > .list-chunk:not(.drawn)')) chunk.classList.add('drawn');
      }
      undrawn.clear();
    });
  }
  undrawn.add(body);
}

/**
 * The markup of chunks that hold `rows`, CHUNK_ROWS to a chunk.
 * @param {string} listId
 * @param {import('./api.js').ListRow[]} rows
 * @param {number} columns
 */
function chunksHtml(listId, rows, columns) {
  let html = '';
  for (let at = 0; at < rows.length; at += CHUNK_ROWS) {
    const group = rows.slice(at, at + CHUNK_ROWS);
    html +=
      `<div class="list-chunk" style="contain-intrinsic-height: ${group.length * ROW_PX}px">` +
      group.map((r) => rowHtml(listId, r, columns)).join('') +
      '</div>';
  }
  return html;
}

/**
 * Gives the cells of rows drawn from markup the texts that markup cannot carry.
 * @param {Element[]} rowEls the rows drawn
 * @param {import('./api.js').ListRow[]} rows their rows from the host
 * @param {number} columns
 */
function fixUnparsed(rowEls, rows, columns) {
  rows.forEach((r, k) => {
    for (let i = 0; i < columns; i++) {
      const text = r.cells[i] ?? '';
      if (UNPARSED.test(text)) rowEls[k].children[i].textContent = text;
    }
  });
}

/** @param {HTMLElement} body @returns {HTMLElement[]} the rows of a list's body */
const rowsOf = (body) => /** @type {HTMLElement[]} */ ([...body.getElementsByClassName('list-row')]);

/**
 * Brings a drawn row up to date with the host's, touching only what changed.
 * @param {HTMLElement} rowEl
 * @param {string} listId
 * @param {import('./api.js').ListRow} r
 * @param {number} columns
 */
function patchRow(rowEl, listId, r, columns) {
  const row = String(r.row);
  if (rowEl.dataset.row !== row) {
    rowEl.dataset.row = row;
    rowEl.id = `${listId}-r${row}`;
  }
  const selected = !!r.selected;
  if (rowEl.classList.contains('selected') !== selected) {
    rowEl.classList.toggle('selected', selected);
    rowEl.setAttribute('aria-selected', String(selected));
  }
  for (let i = 0; i < columns; i++) {
    const cell = rowEl.children[i];
    const text = r.cells[i] ?? '';
    if (cell.textContent !== text) cell.textContent = text;
  }
}

/** @param {import('./api.js').ListRow} a @param {import('./api.js').ListRow} b */
function sameRow(a, b) {
  if (a.row !== b.row || !!a.selected !== !!b.selected || a.cells.length !== b.cells.length) return false;
  for (let i = 0; i < a.cells.length; i++) if (a.cells[i] !== b.cells[i]) return false;
  return true;
}

/**
 * Draws a list's heading and places its columns. Its rows are drawn by
 * fillList, later.
 * @param {HTMLElement} el
 * @param {Control} c
 */
function updateListHead(el, c) {
  const colKey = JSON.stringify(c.columns ?? []);
  if (el.dataset.columns === colKey) return;
  el.dataset.columns = colKey;
  const head = /** @type {HTMLElement} */ (el.querySelector('.list-head'));
  const body = /** @type {HTMLElement} */ (el.querySelector('.list-body'));
  const spans = columnSpans(c);
  const full = Math.max(c.w, ...spans.map((s) => s.left + s.width));
  setListRules(el.id, listCss(el.id, spans, full));
  rowWidths.set(el, full * DLU_X);
  const hasHead = (c.columns ?? []).some((col) => col.heading);
  head.hidden = !hasHead;
  head.style.width = px(full * DLU_X);
  head.replaceChildren(
    ...spans.map((_, i) => {
      const cell = document.createElement('span');
      cell.className = `list-cell c${i}`;
      cell.textContent = (c.columns ?? [])[i].heading ?? '';
      return cell;
    }),
  );
  body.style.top = hasHead ? `${HEAD_PX}px` : '0';
}

/**
 * Whether a list shows other rows than it drew last.
 * @param {Control} c
 * @param {Map<number, ListDrawn>} data what was drawn last, by control id
 */
function listChanged(c, data) {
  const rows = c.rows ?? [];
  const before = data.get(c.id);
  return !(
    before &&
    before.columns === (c.columns ?? []).length &&
    before.rows.length === rows.length &&
    rows.every((r, i) => sameRow(r, before.rows[i]))
  );
}

/**
 * Draws a list's rows, in chunks of CHUNK_ROWS: all of them at once into an
 * empty list, else only the rows that changed, so that the list keeps its
 * elements and its scroll position. A single-selection list scrolls a newly
 * selected row into view.
 * @param {HTMLElement} el
 * @param {Control} c
 * @param {Map<number, ListDrawn>} data what was drawn last, by control id
 */
function fillList(el, c, data) {
  const rows = c.rows ?? [];
  const columns = (c.columns ?? []).length;
  const before = data.get(c.id);
  data.set(c.id, { rows, columns });
  const prevSelected = before?.rows.find((r) => r.selected)?.row;
  const body = /** @type {HTMLElement} */ (el.querySelector('.list-body'));

  if (!before || before.columns !== columns || !body.firstElementChild) {
    body.innerHTML = chunksHtml(el.id, rows, columns);
    if (rows.some((r) => r.cells.some((t) => UNPARSED.test(t)))) fixUnparsed(rowsOf(body), rows, columns);
    if (rows.length) drawWhenIdle(body);
  } else {
    const shown = rowsOf(body);
    const common = Math.min(shown.length, rows.length);
    for (let i = 0; i < common; i++) {
      if (!sameRow(rows[i], before.rows[i])) patchRow(shown[i], el.id, rows[i], columns);
    }
    for (const gone of shown.slice(rows.length)) {
      const chunk = /** @type {HTMLElement} */ (gone.parentElement);
      gone.remove();
      if (!chunk.firstElementChild) chunk.remove();
    }
    if (rows.length > common) {
      // The last chunk is filled up first, then new chunks follow.
      const last = /** @type {HTMLElement|null} */ (body.lastElementChild);
      const room = last ? CHUNK_ROWS - last.childElementCount : 0;
      const into = rows.slice(common, common + room);
      if (last && into.length) last.insertAdjacentHTML('beforeend', into.map((r) => rowHtml(el.id, r, columns)).join(''));
      const more = rows.slice(common + into.length);
      body.insertAdjacentHTML('beforeend', chunksHtml(el.id, more, columns));
      fixUnparsed(rowsOf(body).slice(common), rows.slice(common), columns);
      if (more.length) drawWhenIdle(body);
    }
    // Rows came or went at the end: the chunks there change their height.
    for (const chunk of /** @type {HTMLCollectionOf<HTMLElement>} */ (body.children)) {
      const height = `${chunk.childElementCount * ROW_PX}px`;
      if (chunk.style.getPropertyValue('contain-intrinsic-height') !== height) {
        chunk.style.setProperty('contain-intrinsic-height', height);
      }
    }
  }

  // In a multiple-selection list the highlighted rows are the user's choice
  // and the view follows the caret, not the first highlighted row.
  if (c.multiple) {
    showCaret(el, c, false);
    return;
  }
  const selected = rows.find((r) => r.selected);
  if (selected && selected.row !== prevSelected) {
    const sel = /** @type {HTMLElement|null} */ (body.querySelector(`.list-row[data-row="${selected.row}"]`));
    sel?.scrollIntoView({ block: 'nearest' });
  }
}

/**
 * Marks the caret row of a multiple-selection list: the row that Space
 * toggles and the arrow keys move from. It is the page's own state, kept on
 * the list element across answers (`data-caret`); a caret on a row that is
 * gone falls back to the first highlighted row, else the first row.
 * @param {HTMLElement} el the list
 * @param {Control} c
 * @param {boolean} reveal whether to scroll the caret row into view
 */
function showCaret(el, c, reveal) {
  const caret = caretOf(c.rows ?? [], Number(el.dataset.caret));
  for (const old of el.querySelectorAll('.list-row.caret')) old.classList.remove('caret');
  if (caret === null) {
    delete el.dataset.caret;
    el.removeAttribute('aria-activedescendant');
    return;
  }
  el.dataset.caret = String(caret);
  const row = /** @type {HTMLElement|null} */ (el.querySelector(`.list-row[data-row="${caret}"]`));
  if (!row) return;
  row.classList.add('caret');
  el.setAttribute('aria-activedescendant', row.id);
  if (reveal) row.scrollIntoView({ block: 'nearest' });
}

/**
 * Moves the caret of a multiple-selection list to `row` and scrolls it into
 * view; the highlight is left as it is.
 * @param {HTMLElement} el the list
 * @param {Control} c
 * @param {number} row
 */
export function setCaret(el, c, row) {
  el.dataset.caret = String(row);
  showCaret(el, c, true);
}

/**
 * Whether a static stands over a list as the heading of one of its columns:
 * the list draws its headings in a bar of its own, so such a static is not
 * drawn a second time above it. Texts come as designed, trailing blanks
 * included ("Description "), and are compared without them.
 * @param {Win} w
 * @param {Control} c
 */
function isListHeading(w, c) {
  const text = parseLabel(c.label).plain.trim();
  if (c.type !== 'static' || c.attribute || !text) return false;
  return w.controls.some(
    (l) =>
      l.type === 'list' &&
      (l.columns ?? []).some((col) => (col.heading ?? '').trim() === text) &&
      c.x >= l.x - 2 &&
      c.x < l.x + l.w &&
      c.y + c.h <= l.y + 2 &&
      c.y + c.h >= l.y - 12,
  );
}

/**
 * Brings a control's element up to date with the host's view of it.
 * @param {HTMLElement} el
 * @param {Win} w
 * @param {Control} c
 * @param {WinView} view
 * @param {RenderOptions} opts
 * @param {HTMLElement[]} toFit labels whose text changed
 * @param {{el: HTMLElement, c: Control, data: Map<number, ListDrawn>}[]} later
 *   the lists whose rows are drawn at the end
 */
function updateControl(el, c, w, view, opts, toFit, later) {
  const disabled = !c.enabled;
  el.classList.toggle('disabled', disabled);
  el.classList.toggle('error', !!c.error);
  el.classList.toggle('protected', !!c.protected);
  el.classList.toggle('default', !!c.default);
  el.title = '';
  const keep = isField(c) && opts.isDirty(w.name, c.id);
  const value = c.value ?? '';

  switch (c.type) {
    case 'edit':
    case 'readonly':
    case 'multiline': {
      const f = /** @type {HTMLInputElement|HTMLTextAreaElement} */ (el);
      f.disabled = disabled;
      f.readOnly = c.type === 'readonly' || !!c.protected;
      if (c.type === 'readonly') f.tabIndex = -1;
      if (!keep && f.value !== value) f.value = value;
      if (c.label) f.setAttribute('aria-label', parseLabel(c.label).plain);
      break;
    }
    case 'combo': {
      const s = /** @type {HTMLSelectElement} */ (el);
      const key = JSON.stringify(c.options ?? []);
      if (s.dataset.options !== key) {
        s.dataset.options = key;
        s.replaceChildren(
          ...(c.options ?? []).map((o) => {
            const opt = document.createElement('option');
            opt.value = o.value;
            opt.textContent = o.text;
            return opt;
          }),
        );
      }
      s.disabled = disabled || !!c.protected;
      if (!keep) {
        const opts2 = c.options ?? [];
        let at = opts2.findIndex((o) => o.value === value);
        if (at < 0) at = opts2.findIndex((o) => o.text === value);
        s.selectedIndex = at;
      }
      if (c.label) s.setAttribute('aria-label', parseLabel(c.label).plain);
      break;
    }
    case 'radio': {
      const key = JSON.stringify(c.options ?? []);
      if (el.dataset.options !== key) {
        el.dataset.options = key;
        buildRadios(el, w, c);
      }
      for (const r of /** @type {NodeListOf<HTMLInputElement>} */ (el.querySelectorAll('input'))) {
        r.disabled = disabled || !!c.protected;
        if (!keep) r.checked = r.value === value;
      }
      if (c.label) el.setAttribute('aria-label', parseLabel(c.label).plain);
      break;
    }
    case 'check': {
      const box = /** @type {HTMLInputElement} */ (el.querySelector('input'));
      const cap = /** @type {HTMLElement} */ (el.querySelector('.cap'));
      box.disabled = disabled || !!c.protected;
      if (!keep) box.checked = value !== '' && value === checkValues(c).on;
      // A check box whose label is a static of its own shows no caption of its own.
      const plain = parseLabel(c.label).plain;
      const separate = w.controls.some(
        (s) => s.type === 'static' && parseLabel(s.label).plain === plain,
      );
      const text = separate ? '' : c.label ?? '';
      if (cap.dataset.text !== text) {
        cap.dataset.text = text;
        setLabel(cap, text);
      }
      if (separate && plain) box.setAttribute('aria-label', plain);
      break;
    }
    case 'list': {
      el.classList.toggle('disabled', disabled);
      el.classList.toggle('multiple', !!c.multiple);
      el.setAttribute('aria-multiselectable', String(!!c.multiple));
      el.tabIndex = disabled ? -1 : 0;
      if (c.label) el.setAttribute('aria-label', parseLabel(c.label).plain);
      updateListHead(el, c);
      later.push({ el, c, data: view.data });
      break;
    }
    case 'button':
    case 'picture': {
      const b = /** @type {HTMLButtonElement} */ (el);
      b.disabled = disabled;
      const arrow = c.type === 'picture' ? pictureCaption(c) : null;
      const text = arrow ?? c.label ?? '';
      if (b.dataset.text !== text) {
        b.dataset.text = text;
        if (arrow) {
          b.textContent = arrow;
          b.setAttribute('aria-label', parseLabel(c.label).plain || c.keyword || c.name);
        } else {
          setLabel(b, text);
          b.setAttribute('aria-label', parseLabel(text).plain);
        }
        toFit.push(b);
      }
      break;
    }
    case 'group': {
      const legend = /** @type {HTMLElement} */ (el.querySelector('legend'));
      const text = c.label ?? '';
      if (legend.dataset.text !== text) {
        legend.dataset.text = text;
        setLabel(legend, text);
        legend.hidden = !text;
      }
      break;
    }
    default: {
      // A static: a label, or the value of an attribute it shows.
      const text = c.attribute ? value : c.label ?? '';
      if (el.dataset.text !== text) {
        el.dataset.text = text;
        if (c.attribute) el.textContent = text;
        else setLabel(el, text);
        toFit.push(el);
      }
      el.style.textAlign = textAlign(c.align ?? 'L');
      el.hidden = isListHeading(w, c);
      // A static shorter than a line of text is small print: its type fits its height.
      el.classList.toggle('small', c.h < 8);
      // A static of two lines or more is a sentence or two of text: it wraps.
      el.classList.toggle('wrap', c.h >= WRAP_DLU);
      if (c.h < 8) el.style.fontSize = px(Math.max(MIN_FONT_PX, c.h * DLU_Y * 0.78));
      break;
    }
  }
}

/**
 * Shrinks the type of a label that does not fit its box, as far as
 * MIN_FONT_PX; a designed layout should rarely need it, but the fonts of this
 * machine need not be those the windows were drawn with. A wrapping static
 * does not fit when its lines run past its height.
 * @param {HTMLElement} el
 */
function fitText(el) {
  if (!el.isConnected) return;
  if (!el.classList.contains('small')) el.style.fontSize = '';
  const wraps = el.classList.contains('wrap');
  const over = () =>
    el.scrollWidth > el.clientWidth + 1 || (wraps && el.scrollHeight > el.clientHeight + 1);
  let size = parseFloat(getComputedStyle(el).fontSize);
  while (over() && size > MIN_FONT_PX) {
    size -= 0.5;
    el.style.fontSize = px(size);
  }
}

/**
 * @param {Win} w
 * @returns {WinView}
 */
function buildWindow(w) {
  const el = document.createElement('section');
  el.className = 'window';
  el.dataset.window = w.name;
  el.dataset.kind = w.kind;
  el.setAttribute('role', 'dialog');
  el.setAttribute('aria-labelledby', `t-${w.name}`);

  const bar = document.createElement('header');
  bar.className = 'titlebar';
  const title = document.createElement('span');
  title.className = 'title';
  title.id = `t-${w.name}`;
  const closeBox = document.createElement('button');
  closeBox.type = 'button';
  closeBox.className = 'close-box';
  closeBox.tabIndex = -1;
  closeBox.setAttribute('aria-label', 'Close window');
  closeBox.textContent = '\u2715';
  bar.append(title, closeBox);

  const client = document.createElement('div');
  client.className = 'client';
  client.style.width = px(w.width * DLU_X);
  client.style.height = px(w.height * DLU_Y);

  /** @type {Map<number, HTMLElement>} */
  const controls = new Map();
  for (const c of w.controls) {
    const cel = createControl(w, c);
    controls.set(c.id, cel);
    client.append(cel);
  }
  el.append(bar, client);
  return { el, client, title, closeBox, backdrop: null, sig: signature(w), controls, data: new Map() };
}

/**
 * Where a new window goes: a primary window one cascade step below the last
 * primary window, a dialog centred over the window under it.
 * @param {HTMLElement} desktop
 * @param {WinView} view
 * @param {Map<string, WinView>} views
 * @param {Win[]} windows
 * @param {number} index
 */
function position(desktop, view, views, windows, index) {
  const w = windows[index];
  const owner = index > 0 ? views.get(windows[index - 1].name) : undefined;
  let left;
  let top;
  if (w.kind === 'DD' && owner) {
    const ol = owner.el.offsetLeft;
    const ot = owner.el.offsetTop;
    left = ol + (owner.el.offsetWidth - view.el.offsetWidth) / 2;
    top = ot + (owner.el.offsetHeight - view.el.offsetHeight) / 2;
  } else {
    const primaries = windows.slice(0, index).filter((x) => x.kind !== 'DD').length;
    left = ORIGIN + CASCADE * primaries;
    top = ORIGIN + CASCADE * primaries;
  }
  view.el.style.left = px(Math.max(4, Math.round(left)));
  view.el.style.top = px(Math.max(4, Math.round(top)));
}

/**
 * Takes a window off the page, with the rules of its lists.
 * @param {WinView} view
 */
function dropView(view) {
  view.el.remove();
  view.backdrop?.remove();
  for (const el of view.controls.values()) {
    if (el.dataset.type !== 'list') continue;
    setListRules(el.id, null);
    setListRules(`${el.id} chunks`, null);
  }
}

/**
 * Draws `windows` (bottom to top) on `desktop`. The last window is the
 * active one; the others are drawn inactive and take no input, and a dialog
 * (kind "DD") has a translucent backdrop under it that blocks everything below.
 *
 * The rows of the lists are not drawn yet: the answer is a function that
 * draws them. Call it once the cursor is placed, so that the layout that
 * placing the cursor and fitting the labels reads is done without the rows,
 * and the thousands of rows of a long list are laid out once, for the frame.
 * @param {HTMLElement} desktop
 * @param {Win[]} windows
 * @param {RenderOptions} opts
 * @returns {() => void}
 */
export function renderWindows(desktop, windows, opts) {
  let views = registry.get(desktop);
  if (!views) {
    views = new Map();
    registry.set(desktop, views);
  }
  const live = new Set(windows.map((w) => w.name));
  for (const [name, view] of views) {
    if (!live.has(name) || windows.find((w) => w.name === name)?.kind !== view.el.dataset.kind) {
      dropView(view);
      views.delete(name);
    }
  }

  /** @type {HTMLElement[]} */
  const toFit = [];
  /** @type {{el: HTMLElement, c: Control, data: Map<number, ListDrawn>}[]} */
  const later = [];
  windows.forEach((w, i) => {
    let view = views.get(w.name);
    const sig = signature(w);
    if (view && view.sig !== sig) {
      dropView(view);
      views.delete(w.name);
      view = undefined;
    }
    const fresh = !view;
    if (!view) {
      view = buildWindow(w);
      views.set(w.name, view);
      desktop.append(view.el);
    }
    const active = i === windows.length - 1;

    if (w.kind === 'DD' && !view.backdrop) {
      view.backdrop = document.createElement('div');
      view.backdrop.className = 'backdrop';
      view.backdrop.dataset.owner = w.name;
      desktop.append(view.backdrop);
    }
    if (view.backdrop) view.backdrop.style.zIndex = String(2 * i + 1);
    view.el.style.zIndex = String(2 * i + 2);

    view.title.textContent = w.title;
    view.el.classList.toggle('active', active);
    view.el.classList.toggle('inactive', !active);
    view.el.inert = !active;
    view.el.setAttribute('aria-modal', String(active && w.kind === 'DD'));
    view.closeBox.hidden = !cancelButton(w);

    for (const c of w.controls) {
      const cel = view.controls.get(c.id);
      if (cel) updateControl(cel, c, w, view, opts, toFit, later);
    }
    if (fresh) position(desktop, view, views, windows, i);
  });
  for (const el of toFit) fitText(el);
  return () => {
    const changed = later.filter((l) => listChanged(l.c, l.data));
    // Every list is measured before any gets its rows.
    for (const l of changed) alignChunks(l.el, /** @type {HTMLElement} */ (l.el.querySelector('.list-body')));
    for (const l of changed) fillList(l.el, l.c, l.data);
  };
}

/**
 * The element of a control of a window on `desktop`.
 * @param {HTMLElement} desktop
 * @param {string} win
 * @param {number} id
 * @returns {HTMLElement|null}
 */
export function controlElement(desktop, win, id) {
  return registry.get(desktop)?.get(win)?.controls.get(id) ?? null;
}

/**
 * The window and control that a DOM element belongs to.
 * @param {EventTarget|null} target
 * @returns {{win: string, id: number, el: HTMLElement}|null}
 */
export function controlOf(target) {
  if (!(target instanceof Element)) return null;
  const el = /** @type {HTMLElement|null} */ (target.closest('[data-control]'));
  const win = /** @type {HTMLElement|null} */ (target.closest('[data-window]'));
  if (!el || !win) return null;
  return { win: win.dataset.window ?? '', id: Number(el.dataset.control), el };
}

/**
 * Gives the cursor to a control: to its checked radio button, its check box,
 * or the element itself.
 * @param {HTMLElement} el
 */
export function focusControl(el) {
  /** @type {HTMLElement|null} */
  let target = el;
  if (el.dataset.type === 'radio') {
    target = el.querySelector('input:checked') ?? el.querySelector('input');
  } else if (el.dataset.type === 'check') {
    target = el.querySelector('input');
  }
  target?.focus({ preventScroll: false });
  if (target instanceof HTMLInputElement && target.type === 'text') target.select();
}
