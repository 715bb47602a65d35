// The keyboard of a desktop dialog: Alt+letter for the control whose label
// carries "&letter", Enter for the default button, Esc for the window's
// Cancel or Close button, arrow keys inside a list; in a multiple-selection
// list the arrow keys move a caret and Space toggles the caret row's
// highlight. This module only decides what a key means for the top window;
// app.js carries it out.

/** @typedef {import('./api.js').Control} Control */
/** @typedef {import('./api.js').Win} Win */

/**
 * A label as designed, split around its mnemonic: "Accep&t" has the parts
 * "Accep", "t" (underlined) and the letter "t"; "&&" stands for one "&".
 * @param {string|null|undefined} label
 * @returns {{parts: {text: string, underline: boolean}[], plain: string, letter: string|null}}
 */
export function parseLabel(label) {
  /** @type {{text: string, underline: boolean}[]} */
  const parts = [];
  let plain = '';
  let letter = null;
  let run = '';
  const text = label ?? '';
  for (let i = 0; i < text.length; i++) {
    const ch = text[i];
    if (ch === '&' && i + 1 < text.length) {
      const next = text[i + 1];
      i++;
      if (next === '&') {
        run += '&';
        plain += '&';
        continue;
      }
      if (letter === null) {
        if (run) parts.push({ text: run, underline: false });
        run = '';
        parts.push({ text: next, underline: true });
        letter = next.toLowerCase();
        plain += next;
        continue;
      }
      run += next;
      plain += next;
      continue;
    }
    run += ch;
    plain += ch;
  }
  if (run) parts.push({ text: run, underline: false });
  return { parts, plain, letter };
}

/** Types that a mnemonic or Enter presses. */
const PRESSABLE = new Set(['button', 'picture']);

/** Types that a mnemonic on their label static gives the cursor to. */
const FOCUSABLE = new Set(['edit', 'readonly', 'multiline', 'combo', 'radio', 'check', 'list']);

/**
 * The button of `win` whose mnemonic is `letter`, else the field whose label
 * static has it. A disabled control does not answer to its mnemonic.
 * @param {Win} win
 * @param {string} letter lower case
 * @returns {{press: Control}|{focus: Control}|null}
 */
export function mnemonicTarget(win, letter) {
  for (const c of win.controls) {
    if (PRESSABLE.has(c.type) && c.enabled && parseLabel(c.label).letter === letter) {
      return { press: c };
    }
  }
  for (const s of win.controls) {
    if (s.type !== 'static') continue;
    const label = parseLabel(s.label);
    if (label.letter !== letter) continue;
    const field = win.controls.find(
      (c) => FOCUSABLE.has(c.type) && c.enabled && parseLabel(c.label).plain === label.plain,
    );
    if (field) return { focus: field };
  }
  return null;
}

/** @param {string|null|undefined} label */
export function isCancelLabel(label) {
  return label === 'Cance&l' || label === 'C&lose';
}

/**
 * The button that Esc presses: the one labelled "Cance&l" or "C&lose".
 * @param {Win} win
 * @returns {Control|null}
 */
export function cancelButton(win) {
  return (
    win.controls.find((c) => PRESSABLE.has(c.type) && c.enabled && isCancelLabel(c.label)) ?? null
  );
}

/**
 * @param {Win} win
 * @returns {Control|null}
 */
export function defaultButton(win) {
  return win.controls.find((c) => PRESSABLE.has(c.type) && c.default === true) ?? null;
}

/**
 * The letter of a key press, from the physical key where it is a letter or a
 * digit, so that Alt combinations that type accented letters still count.
 * @param {KeyboardEvent} e
 * @returns {string|null}
 */
function letterOf(e) {
  const m = /^(?:Key([A-Z])|Digit([0-9]))$/.exec(e.code || '');
  if (m) return (m[1] || m[2]).toLowerCase();
  if (e.key && e.key.length === 1) return e.key.toLowerCase();
  return null;
}

/**
 * The caret row of a multiple-selection list: `stored` where the list still
 * shows that row, else its first highlighted row, else its first row; null
 * for an empty list.
 * @param {{row: number, selected: boolean}[]} rows the rows shown, in list order
 * @param {number} stored the row the caret was last put on (NaN for none)
 * @returns {number|null}
 */
export function caretOf(rows, stored) {
  if (rows.some((r) => r.row === stored)) return stored;
  return (rows.find((r) => r.selected) ?? rows[0])?.row ?? null;
}

/**
 * A key in a multiple-selection list: Up, Down, Home, End, Page Up and Page
 * Down move the caret without touching the highlight; Space toggles the
 * caret row's highlight.
 * @param {KeyboardEvent} e
 * @param {Element|null} active the list element
 * @param {Control} list
 * @returns {{caret: Control, to: number}|{toggle: Control, row: number}|null}
 */
function multipleKey(e, active, list) {
  const rows = list.rows ?? [];
  if (!rows.length || !list.enabled) return null;
  const stored = active instanceof HTMLElement ? Number(active.dataset.caret) : NaN;
  const caret = /** @type {number} */ (caretOf(rows, stored));
  if (e.key === ' ') return { toggle: list, row: caret };
  const at = rows.findIndex((r) => r.row === caret);
  // A page is as many rows as the list shows, less one to keep in sight.
  const body = active?.querySelector('.list-body');
  const first = active?.querySelector('.list-row');
  const page =
    body instanceof HTMLElement && first instanceof HTMLElement && first.offsetHeight > 0
      ? Math.max(1, Math.floor(body.clientHeight / first.offsetHeight) - 1)
      : 1;
  /** @type {Record<string, number>} */
  const moves = {
    ArrowDown: at + 1,
    ArrowUp: at - 1,
    PageDown: at + page,
    PageUp: at - page,
    Home: 0,
    End: rows.length - 1,
  };
  if (!(e.key in moves)) return null;
  const next = Math.max(0, Math.min(rows.length - 1, moves[e.key]));
  return { caret: list, to: rows[next].row };
}

/**
 * What a key press means in the top window.
 *  - {press: control}: click that button;
 *  - {focus: control}: give that field the cursor;
 *  - {row: control, to: rowNumber}: select that list row, as a click would;
 *  - {caret: control, to: rowNumber}: move a multiple-selection list's caret;
 *  - {toggle: control, row: rowNumber}: toggle that row's highlight in a
 *    multiple-selection list, as a click on it would;
 *  - null: leave the key to the browser (typing, Tab, Space on a button).
 * @param {KeyboardEvent} e
 * @param {Win} win
 * @param {Element|null} active the element that has the focus
 * @param {Control|null} activeControl the control of that element, if any
 * @returns {{press: Control}|{focus: Control}|{row: Control, to: number}|
 *   {caret: Control, to: number}|{toggle: Control, row: number}|null}
 */
export function keyAction(e, win, active, activeControl) {
  if (e.altKey && !e.ctrlKey && !e.metaKey) {
    const letter = letterOf(e);
    return letter ? mnemonicTarget(win, letter) : null;
  }
  if (e.ctrlKey || e.metaKey || e.altKey) return null;

  if (e.key === 'Escape') {
    const b = cancelButton(win);
    return b ? { press: b } : null;
  }

  if (e.key === 'Enter') {
    // A focused button takes Enter itself; a multi-line field takes it as a
    // new line. Everywhere else it presses the default button.
    if (active instanceof HTMLButtonElement) return null;
    if (active instanceof HTMLTextAreaElement && !active.readOnly) return null;
    const b = defaultButton(win);
    return b && b.enabled ? { press: b } : null;
  }

  if (activeControl?.type === 'list' && activeControl.multiple) {
    return multipleKey(e, active?.closest('[data-control]') ?? null, activeControl);
  }

  if ((e.key === 'ArrowDown' || e.key === 'ArrowUp') && activeControl?.type === 'list') {
    const rows = activeControl.rows ?? [];
    if (!rows.length || !activeControl.enabled) return null;
    const at = rows.findIndex((r) => r.selected);
    let next;
    if (at < 0) next = e.key === 'ArrowDown' ? 0 : rows.length - 1;
    else next = Math.max(0, Math.min(rows.length - 1, at + (e.key === 'ArrowDown' ? 1 : -1)));
    if (next === at) return null;
    return { row: activeControl, to: rows[next].row };
  }
  return null;
}
