// The page: the sign-in form, the session, and the loop that turns what the
// user does into events for the host and draws the screen that comes back.
//
// Events go to the host one at a time, in the order the user made them. An
// edit of a field is sent as its own "Changed" event when the field loses the
// cursor (a combo box, radio group or check box at once), and before any
// other event of its window, so the host sees every edit in the order it was
// made, even one that leaves the text as it was. While an answer is on its
// way the user may go on typing: a field edited since its value was sent
// keeps what the user typed when the answer is drawn.
//
// A multiple-selection list has no single selected row: a click (or Space
// on its caret row) toggles one row's highlight, Shift+click highlights the
// rows from the last toggled one to the one clicked. Each such change goes to
// the host as a Click on the list with every highlighted row in `rows`, as a
// person's click would raise it; the host keeps the highlight, and the
// list's enable rules and the next event's units read it from there. The
// highlight is worked out when the click's turn in the queue comes, from the
// screen the clicks before it left, so quick clicks add up.

import { Api, ApiError } from './api.js';
import {
  renderWindows,
  readValue,
  isField,
  controlElement,
  controlOf,
  focusControl,
  setCaret,
} from './render.js';
import { keyAction, cancelButton, isCancelLabel } from './keys.js';

/** @typedef {import('./api.js').Screen} Screen */
/** @typedef {import('./api.js').Win} Win */
/** @typedef {import('./api.js').Control} Control */
/** @typedef {import('./api.js').UiEvent} UiEvent */

const api = new Api();

/** @param {string} id */
const byId = (id) => /** @type {HTMLElement} */ (document.getElementById(id));

const desktop = byId('desktop');
const statusText = byId('status-text');
const statusUser = byId('status-user');
const loginLayer = byId('login');
const loginForm = /** @type {HTMLFormElement} */ (byId('login-form'));
const loginError = byId('login-error');
const boxLayer = byId('boxes');

/** @type {Screen|null} */
let screen = null;

/**
 * Fields edited since their value last went to the host, in the order of
 * their first edit. Key: window name, NUL, control id.
 * @type {Map<string, {win: string, id: number}>}
 */
const dirty = new Map();

/** The tail of the queue of work for the host. */
let chain = Promise.resolve();

/**
 * Raised whenever something happens that the user must see before going on
 * (a refusal, an error message, a stop): queued actions of an older epoch are
 * then dropped instead of sent.
 */
let epoch = 0;

/** Requests under way, for the busy cursor. */
let busy = 0;

/**
 * @param {string} win
 * @param {number} id
 */
const dirtyKey = (win, id) => `${win}\u0000${id}`;

/** @returns {Win|null} */
function topWindow() {
  const ws = screen?.windows ?? [];
  return ws.length ? ws[ws.length - 1] : null;
}

/**
 * @param {string} win
 * @param {number} id
 * @returns {Control|null}
 */
function findControl(win, id) {
  const w = screen?.windows.find((x) => x.name === win);
  return w?.controls.find((c) => c.id === id) ?? null;
}

/**
 * How a field is named in an event's values: by its attribute where no other
 * control of the window shows that attribute, else by its id.
 * @param {Win} w
 * @param {Control} c
 */
function valueKey(w, c) {
  if (c.attribute && w.controls.filter((x) => x.attribute === c.attribute).length === 1) {
    return c.attribute;
  }
  return String(c.id);
}

/**
 * @param {string} text
 * @param {'info'|'error'|''} [kind]
 * @param {{href: string, text: string}} [link]
 */
function setStatus(text, kind = '', link) {
  statusText.className = kind;
  statusText.replaceChildren(text);
  if (link) {
    const a = document.createElement('a');
    a.href = link.href;
    a.target = '_blank';
    a.rel = 'noopener';
    a.textContent = link.text;
    statusText.append(' ', a);
  }
}

/** @param {() => Promise<unknown>} task */
function enqueue(task) {
  chain = chain
    .then(async () => {
      await task();
    })
    .catch((e) => {
      setStatus(e instanceof Error ? e.message : String(e), 'error');
    });
  return chain;
}

/**
 * Sends one event and draws the answer. A refusal leaves the screen as it is
 * and is shown in the status line.
 * @param {UiEvent} event
 * @returns {Promise<boolean>} whether the host took the event
 */
async function post(event) {
  busy++;
  document.body.classList.add('busy');
  try {
    const next = await api.send(event);
    show(next, event);
    return true;
  } catch (e) {
    refused(e);
    return false;
  } finally {
    busy--;
    document.body.classList.toggle('busy', busy > 0);
  }
}

/** @param {unknown} e */
function refused(e) {
  epoch++;
  if (e instanceof ApiError && e.status === 401) {
    sessionLost();
    return;
  }
  setStatus(e instanceof Error ? e.message : String(e), 'error');
  if (e instanceof ApiError && e.status === 409) {
    // The page is behind the host: fetch the screen as it stands. Fields the
    // user has typed in keep their text.
    enqueue(async () => {
      try {
        show(await api.screen(), null, true);
      } catch (err) {
        if (err instanceof ApiError && err.status === 401) sessionLost();
      }
    });
  }
}

/**
 * Sends the "Changed" event of one edited field with its value.
 * @param {string} win
 * @param {number} id
 * @returns {Promise<boolean>} false when the host refused the value
 */
async function sendChanged(win, id) {
  const key = dirtyKey(win, id);
  if (!dirty.has(key)) return true;
  const w = topWindow();
  const c = findControl(win, id);
  const el = controlElement(desktop, win, id);
  if (!w || w.name !== win || !c || !el || !c.enabled) {
    // The window moved on or the field can no longer be edited.
    dirty.delete(key);
    return true;
  }
  const value = readValue(el, c);
  dirty.delete(key);
  const ok = await post({
    window: win,
    control: c.id,
    event: 'Changed',
    values: { [valueKey(w, c)]: value },
  });
  // A refused value stays on screen, still to be sent.
  if (!ok && !dirty.has(key)) dirty.set(key, { win, id });
  return ok;
}

/**
 * Sends the pending edits of a window, in the order they were made.
 * @param {string} win
 */
async function flush(win) {
  for (const { win: w, id } of [...dirty.values()]) {
    if (w !== win) continue;
    if (!(await sendChanged(w, id))) return false;
  }
  return true;
}

/**
 * Queues an event on a control of the top window: its edits first, then the
 * event itself. The window's Cancel or Close button goes even when an edit
 * was refused, and leaves the edits unsent.
 * @param {string} win
 * @param {number} id
 * @param {string} event
 * @param {{row?: number, rows?: () => number[]}} [list] the row clicked in a
 *   list; or, for a multiple-selection list, what its highlighted rows are
 *   to be, asked for when the event's turn comes
 */
function act(win, id, event, list = {}) {
  const at = epoch;
  const control = findControl(win, id);
  const leaving = !!control && isCancelLabel(control.label);
  enqueue(async () => {
    const current = () =>
      (leaving || at === epoch) && topWindow()?.name === win && !!findControl(win, id)?.enabled;
    if (!current()) return;
    if (leaving) {
      for (const [key, d] of [...dirty]) if (d.win === win) dirty.delete(key);
    } else if (!(await flush(win)) || !current()) {
      return;
    }
    const w = /** @type {Win} */ (topWindow());
    /** @type {Record<string, string>} */
    const values = {};
    for (const [key, d] of [...dirty]) {
      if (d.win !== win) continue;
      const c = findControl(win, d.id);
      const el = controlElement(desktop, win, d.id);
      if (c && el && c.enabled) values[valueKey(w, c)] = readValue(el, c);
      dirty.delete(key);
    }
    /** @type {UiEvent} */
    const ev = { window: win, control: id, event, values };
    if (list.row !== undefined) ev.row = list.row;
    if (list.rows) ev.rows = list.rows();
    await post(ev);
  });
}

/**
 * The rows highlighted in a list as the host last drew it, in list order.
 * @param {string} win
 * @param {number} id
 * @returns {number[]}
 */
function highlighted(win, id) {
  return (findControl(win, id)?.rows ?? []).filter((r) => r.selected).map((r) => r.row);
}

/**
 * The highlight of a multiple-selection list with one row toggled.
 * @param {string} win
 * @param {number} id
 * @param {number} row
 * @returns {number[]}
 */
function toggled(win, id, row) {
  const now = highlighted(win, id);
  return now.includes(row) ? now.filter((r) => r !== row) : inListOrder(win, id, [...now, row]);
}

/**
 * The highlight of a multiple-selection list with every row from `from` to
 * `to` (in list order, either way round) added to it.
 * @param {string} win
 * @param {number} id
 * @param {number} from
 * @param {number} to
 * @returns {number[]}
 */
function extended(win, id, from, to) {
  const shown = (findControl(win, id)?.rows ?? []).map((r) => r.row);
  let a = shown.indexOf(from);
  const b = shown.indexOf(to);
  if (a < 0) a = b;
  const span = shown.slice(Math.min(a, b), Math.max(a, b) + 1);
  return inListOrder(win, id, [...highlighted(win, id), ...span]);
}

/**
 * @param {string} win
 * @param {number} id
 * @param {number[]} rows
 * @returns {number[]}
 */
function inListOrder(win, id, rows) {
  const wanted = new Set(rows);
  return (findControl(win, id)?.rows ?? []).map((r) => r.row).filter((r) => wanted.has(r));
}

/**
 * A click on a row of a multiple-selection list, or Space on its caret row:
 * the caret moves there at once, and the new highlight goes to the host.
 * Shift extends from the row last toggled (the anchor) instead.
 * @param {{win: string, id: number, el: HTMLElement}} hit the list
 * @param {Control} c
 * @param {number} row
 * @param {boolean} extend
 */
function toggleRow(hit, c, row, extend) {
  const anchor = Number(hit.el.dataset.anchor);
  setCaret(hit.el, c, row);
  if (extend && Number.isFinite(anchor)) {
    act(hit.win, hit.id, 'Click', { rows: () => extended(hit.win, hit.id, anchor, row) });
    return;
  }
  hit.el.dataset.anchor = String(row);
  act(hit.win, hit.id, 'Click', { rows: () => toggled(hit.win, hit.id, row) });
}

/**
 * Opens a help page in a window of its own; where the browser blocks that,
 * the status line offers it as a link.
 * @param {string} href
 */
function openHelp(href) {
  const w = window.open(href, '_blank');
  if (w) {
    try {
      w.opener = null;
    } catch {
      // a cross-origin help page: nothing to detach
    }
    setStatus('Help opened in a new window.', 'info');
  } else {
    setStatus('The browser kept the help window from opening:', 'info', { href, text: 'open help' });
  }
}

// ---------------------------------------------------------------- boxes ----

/**
 * @typedef {{
 *   title: string, icon?: string, body: (string|Node)[],
 *   buttons: {label: string, onClick?: () => void}[], kind: string
 * }} Box
 */

/** @type {Box[]} */
const boxes = [];

function boxOpen() {
  return boxes.length > 0;
}

/**
 * Queues a modal box over the desktop. Boxes show one at a time; while any is
 * up the windows take no input.
 * @param {Box} box
 */
function showBox(box) {
  boxes.push(box);
  if (boxes.length === 1) drawBox();
}

function drawBox() {
  const box = boxes[0];
  desktop.inert = true;
  const win = document.createElement('section');
  win.className = `window active msgbox msgbox-${box.kind}`;
  win.setAttribute('role', 'alertdialog');
  win.setAttribute('aria-modal', 'true');
  win.setAttribute('aria-labelledby', 'box-title');
  win.setAttribute('aria-describedby', 'box-text');
  const bar = document.createElement('header');
  bar.className = 'titlebar';
  const title = document.createElement('span');
  title.className = 'title';
  title.id = 'box-title';
  title.textContent = box.title;
  bar.append(title);
  const client = document.createElement('div');
  client.className = 'msgbox-client';
  if (box.icon) {
    const icon = document.createElement('div');
    icon.className = `msgbox-icon icon-${box.kind}`;
    icon.textContent = box.icon;
    icon.setAttribute('aria-hidden', 'true');
    client.append(icon);
  }
  const text = document.createElement('div');
  text.className = 'msgbox-text';
  text.id = 'box-text';
  text.append(...box.body);
  client.append(text);
  const row = document.createElement('div');
  row.className = 'msgbox-buttons';
  for (const [i, choice] of box.buttons.entries()) {
    const b = document.createElement('button');
    b.type = 'button';
    b.className = i === 0 ? 'default' : '';
    b.textContent = choice.label;
    b.addEventListener('click', () => {
      closeBox();
      choice.onClick?.();
    });
    row.append(b);
  }
  win.append(bar, client, row);
  const shade = document.createElement('div');
  shade.className = 'backdrop';
  boxLayer.replaceChildren(shade, win);
  boxLayer.hidden = false;
  centreOverTop(win);
  /** @type {HTMLButtonElement|null} */ (row.querySelector('button'))?.focus();
}

/**
 * Puts a box over the middle of the top window, as a message box stands over
 * its owner; with no window on screen it stays in the middle of the page.
 * @param {HTMLElement} box
 */
function centreOverTop(box) {
  const w = topWindow();
  const owner = w ? desktop.querySelector(`section.window[data-window="${CSS.escape(w.name)}"]`) : null;
  if (!owner) return;
  const r = owner.getBoundingClientRect();
  const left = Math.max(4, Math.min(window.innerWidth - box.offsetWidth - 4, r.left + (r.width - box.offsetWidth) / 2));
  const top = Math.max(4, r.top + (r.height - box.offsetHeight) / 2);
  box.style.transform = 'none';
  box.style.left = `${Math.round(left)}px`;
  box.style.top = `${Math.round(top)}px`;
}

function closeBox() {
  boxes.shift();
  if (boxes.length) {
    drawBox();
    return;
  }
  boxLayer.hidden = true;
  boxLayer.replaceChildren();
  desktop.inert = false;
  placeFocus(true);
}

/**
 * A key while a box is up: Enter and Esc press its first button; nothing
 * reaches the windows.
 * @param {KeyboardEvent} e
 */
function boxKey(e) {
  const first = /** @type {HTMLButtonElement|null} */ (boxLayer.querySelector('.msgbox-buttons button'));
  if (e.key === 'Escape' || (e.key === 'Enter' && !(document.activeElement instanceof HTMLButtonElement))) {
    e.preventDefault();
    first?.click();
  } else if (e.key === 'Tab') {
    const buttons = [.../** @type {NodeListOf<HTMLButtonElement>} */ (boxLayer.querySelectorAll('button'))];
    if (buttons.length <= 1 || !buttons.includes(/** @type {any} */ (document.activeElement))) {
      e.preventDefault();
      buttons[0]?.focus();
    }
  } else if (e.altKey) {
    e.preventDefault();
  }
}

// ---------------------------------------------------------------- screen ----

/**
 * Gives the cursor to the field the host asks for: a field in error when the
 * answer is more than an edit, else the field marked for the cursor. Failing
 * both it stays where the user left it, or goes to the first control of the
 * top window.
 * @param {boolean} strong whether a field in error takes the cursor
 */
function placeFocus(strong) {
  if (boxOpen()) return;
  const w = topWindow();
  if (!w) return;
  const pick =
    (strong ? w.controls.find((c) => c.error && c.enabled) : undefined) ??
    w.controls.find((c) => c.focus && c.enabled);
  if (pick) {
    const el = controlElement(desktop, w.name, pick.id);
    if (el) {
      focusControl(el);
      return;
    }
  }
  const active = document.activeElement;
  const own = /** @type {HTMLElement|null} */ (
    active instanceof Element ? active.closest('[data-window]') : null
  );
  if (own && own.dataset.window === w.name && active !== document.body) return;
  const first = w.controls.find(
    (c) => c.enabled && !c.protected && !['static', 'group', 'readonly'].includes(c.type),
  );
  const el = first ? controlElement(desktop, w.name, first.id) : null;
  if (el) focusControl(el);
}

/**
 * Draws a screen from the host.
 * @param {Screen} next
 * @param {UiEvent|null} cause the event it answers, null for a fetched screen
 * @param {boolean} [quiet] a screen fetched to catch up: the status line and
 *   the boxes already shown stay as they are
 */
function show(next, cause, quiet = false) {
  screen = next;
  const names = new Set(next.windows.map((w) => w.name));
  for (const [key, d] of [...dirty]) if (!names.has(d.win)) dirty.delete(key);

  const drawRows = renderWindows(desktop, next.windows, {
    isDirty: (win, id) => dirty.has(dirtyKey(win, id)),
  });
  try {
    announce(next, cause, quiet);
  } finally {
    // The list rows come last: nothing after them reads the layout, so the
    // browser lays them out once, when it paints.
    drawRows();
  }
}

/**
 * The rest of drawing a screen: the title, the status line, help, the
 * boxes, and the cursor.
 * @param {Screen} next
 * @param {UiEvent|null} cause
 * @param {boolean} quiet
 */
function announce(next, cause, quiet) {
  const top = topWindow();
  document.title = top ? `${top.title} - WATRIX` : 'WATRIX';

  const msg = next.message;
  if (msg && msg.kind !== 'E' && msg.text) setStatus(msg.text, 'info');
  else if (!quiet) setStatus('');

  if (next.help && cause) openHelp(next.help);

  // A screen fetched to catch up repeats what was already shown: no boxes.
  if (next.failure && !quiet) {
    epoch++;
    const f = next.failure;
    /** @type {[string, string][]} */
    const rows = [
      ['Unit name', f.unit_name],
      ['Unit number', f.unit_number],
      ['Statement', f.statement],
      ['Status', f.status],
      ['Status detail', f.status_detail],
      ['Database', f.database],
    ];
    const dl = document.createElement('dl');
    dl.className = 'failure';
    for (const [k, v] of rows) {
      const dt = document.createElement('dt');
      dt.textContent = k;
      const dd = document.createElement('dd');
      dd.textContent = v ?? '';
      dl.append(dt, dd);
    }
    showBox({
      kind: 'failure',
      title: 'The event was not completed',
      icon: '\u2716',
      body: [
        para('The run stopped and everything this event did was undone. Report these details:'),
        dl,
      ],
      buttons: [{ label: 'OK' }],
    });
  }
  if (msg && msg.kind === 'E' && !quiet) {
    epoch++;
    showBox({
      kind: 'error',
      title: top?.title ?? 'WATRIX',
      icon: '\u2716',
      body: [msg.text],
      buttons: [{ label: 'OK' }],
    });
  }
  if (next.ended && !boxes.some((b) => b.kind === 'ended')) {
    epoch++;
    showBox({
      kind: 'ended',
      title: 'WATRIX',
      body: [para('The session has ended.')],
      buttons: [{ label: 'Start again', onClick: () => void restart() }],
    });
  }
  placeFocus(!!cause && cause.event !== 'Changed');
}

/** @param {string} text */
function para(text) {
  const p = document.createElement('p');
  p.textContent = text;
  return p;
}

// --------------------------------------------------------------- session ----

/** @param {string} [note] */
function showLogin(note = '') {
  screen = null;
  dirty.clear();
  epoch++;
  renderWindows(desktop, [], { isDirty: () => false })();
  boxes.length = 0;
  boxLayer.hidden = true;
  boxLayer.replaceChildren();
  desktop.inert = false;
  loginLayer.hidden = false;
  loginError.textContent = note;
  statusUser.textContent = '';
  setStatus('');
  document.title = 'WATRIX';
  const user = /** @type {HTMLInputElement} */ (loginForm.elements.namedItem('user'));
  user.focus();
  user.select();
}

function sessionLost() {
  api.setToken(null);
  showLogin('The server no longer knows this session. Sign in again.');
}

async function restart() {
  await api.end();
  showLogin();
}

/**
 * @param {Screen} first
 * @param {string} who
 */
function enter(first, who) {
  loginLayer.hidden = true;
  loginError.textContent = '';
  statusUser.textContent = who;
  try {
    sessionStorage.setItem('watrix.who', who);
  } catch {
    // not kept across reloads then
  }
  show(first, null);
}

loginForm.addEventListener('submit', async (e) => {
  e.preventDefault();
  const data = new FormData(loginForm);
  const user = String(data.get('user') ?? '').trim();
  const org = String(data.get('org') ?? '').trim();
  const password = String(data.get('password') ?? '');
  const submit = /** @type {HTMLButtonElement} */ (loginForm.querySelector('button[type=submit]'));
  submit.disabled = true;
  loginError.textContent = '';
  try {
    const first = await api.login({ user, org, password });
    enter(first, `${user} / ${org}`);
  } catch (err) {
    loginError.textContent = err instanceof Error ? err.message : String(err);
  } finally {
    submit.disabled = false;
  }
});

// ---------------------------------------------------------------- input ----

desktop.addEventListener('click', (e) => {
  const target = /** @type {Element} */ (e.target);
  const closeBtn = target.closest?.('.close-box');
  if (closeBtn) {
    const winEl = /** @type {HTMLElement} */ (closeBtn.closest('[data-window]'));
    const w = topWindow();
    if (w && winEl.dataset.window === w.name) {
      const b = cancelButton(w);
      if (b) act(w.name, b.id, 'Click');
    }
    return;
  }
  const hit = controlOf(target);
  if (!hit) return;
  const type = hit.el.dataset.type;
  if ((type === 'button' || type === 'picture') && !(/** @type {HTMLButtonElement} */ (hit.el).disabled)) {
    act(hit.win, hit.id, 'Click');
  }
});

// A list takes the mouse when the button goes down, as a list box does; the
// second press of a double click is the DoubleClick.
desktop.addEventListener('mousedown', (e) => {
  if (e.button !== 0) return;
  const target = /** @type {Element} */ (e.target);
  const hit = controlOf(target);
  if (!hit || hit.el.dataset.type !== 'list') return;
  const c = findControl(hit.win, hit.id);
  if (!c || !c.enabled) return;
  const rowEl = /** @type {HTMLElement|null} */ (target.closest('.list-row'));
  if (!rowEl) return;
  const row = Number(rowEl.dataset.row);
  if (c.multiple) {
    // The second press of a double click leaves the highlight as the first
    // left it; the DoubleClick carries it.
    if (e.detail <= 1) toggleRow(hit, c, row, e.shiftKey);
    else if (e.detail === 2) act(hit.win, hit.id, 'DoubleClick', { rows: () => highlighted(hit.win, hit.id) });
    return;
  }
  if (e.detail <= 1) act(hit.win, hit.id, 'Click', { row });
  else if (e.detail === 2) act(hit.win, hit.id, 'DoubleClick', { row });
});

// A click in a list gives the cursor to the list, not to its scrolling body
// (which the mouse could otherwise focus): the list is what the keys and the
// look of its selection answer to.
desktop.addEventListener('focusin', (e) => {
  const target = /** @type {Element} */ (e.target);
  if (!target.classList?.contains('list-body')) return;
  const listEl = /** @type {HTMLElement|null} */ (target.closest('.ctl-list'));
  listEl?.focus({ preventScroll: true });
});

desktop.addEventListener('input', (e) => {
  const hit = controlOf(e.target);
  if (!hit) return;
  const c = findControl(hit.win, hit.id);
  if (c && isField(c)) dirty.set(dirtyKey(hit.win, hit.id), { win: hit.win, id: hit.id });
});

desktop.addEventListener('change', (e) => {
  const hit = controlOf(e.target);
  if (!hit) return;
  const c = findControl(hit.win, hit.id);
  if (!c || !['combo', 'radio', 'check'].includes(c.type)) return;
  dirty.set(dirtyKey(hit.win, hit.id), { win: hit.win, id: hit.id });
  enqueue(() => sendChanged(hit.win, hit.id));
});

desktop.addEventListener('focusout', (e) => {
  const hit = controlOf(e.target);
  if (!hit) return;
  const type = hit.el.dataset.type;
  if (type !== 'edit' && type !== 'multiline') return;
  if (!dirty.has(dirtyKey(hit.win, hit.id))) return;
  const at = epoch;
  enqueue(async () => {
    if (at === epoch) await sendChanged(hit.win, hit.id);
  });
});

document.addEventListener('keydown', (e) => {
  if (boxOpen()) {
    boxKey(e);
    return;
  }
  if (!loginLayer.hidden || !screen) return;
  const w = topWindow();
  if (!w) return;
  const active = document.activeElement;
  const hit = controlOf(active);
  const activeControl = hit && hit.win === w.name ? findControl(w.name, hit.id) : null;
  const action = keyAction(e, w, active, activeControl);
  if (!action) return;
  e.preventDefault();
  if ('press' in action) {
    act(w.name, action.press.id, 'Click');
  } else if ('focus' in action) {
    const el = controlElement(desktop, w.name, action.focus.id);
    if (el) focusControl(el);
  } else if ('caret' in action) {
    const el = controlElement(desktop, w.name, action.caret.id);
    if (el) setCaret(el, action.caret, action.to);
  } else if ('toggle' in action) {
    const el = controlElement(desktop, w.name, action.toggle.id);
    if (el) toggleRow({ win: w.name, id: action.toggle.id, el }, action.toggle, action.row, e.shiftKey);
  } else {
    act(w.name, action.row.id, 'Click', { row: action.to });
  }
});

// ---------------------------------------------------------------- start ----

async function start() {
  if (!api.token) {
    showLogin();
    return;
  }
  try {
    const current = await api.screen();
    let who = '';
    try {
      who = sessionStorage.getItem('watrix.who') ?? '';
    } catch {
      who = '';
    }
    enter(current, who);
  } catch {
    api.setToken(null);
    showLogin();
  }
}

void start();
