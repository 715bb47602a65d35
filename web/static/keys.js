// The keyboard of a desktop dialog: Alt+letter for the control whose label
// carries "&letter", Enter for the default button, Esc for the window's
// Cancel or Close button, arrow keys inside a list. This module only decides
// what a key means for the top window; app.js carries it out.

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
 * What a key press means in the top window.
 *  - {press: control}: click that button;
 *  - {focus: control}: give that field the cursor;
 *  - {row: control, to: rowNumber}: select that list row, as a click would;
 *  - null: leave the key to the browser (typing, Tab, Space on a button).
 * @param {KeyboardEvent} e
 * @param {Win} win
 * @param {Element|null} active the element that has the focus
 * @param {Control|null} activeControl the control of that element, if any
 * @returns {{press: Control}|{focus: Control}|{row: Control, to: number}|null}
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
