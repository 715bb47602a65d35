// The permitted value windows in a real browser, driven as a person would:
// open the list from the menu; change a value that two other tables hold as
// well, picking both in the multiple-selection list of RT54 by mouse and by
// keyboard; add an activity category with its sample sub-list row through
// RT3D and RT3E, after a look at the pairs of names in RT3A; delete a row after its confirmation, and a category with
// its companion row through RT2B; close.
//
// WATRIX_URL: the address of a running `watrix serve` (required), on a
// database that holds the demo data.
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT2_PERMITTED_VALUE_MAINT_LIST';
const DELETE = 'RT2A_DELETE_PERMITTED_VALUE';
const COMPANION = 'RT2B_ACTIVITY_CATEGORY_PERMITTED';
const ENTRY = 'RT3_PERMITTED_VALUE_DATA_ENTRY';
const NAMES = 'RT3A_PV_NAME_SELECTION_LIST';
const CATEGORY = 'RT3D_NEW_ACTIVITY_CATEGORY';
const SEQUENCE = 'RT3E_NEW_SEQUENCE_NUMB_SELECTION';
const TABLES = 'RT54_MULTIPLE_TABLE_SELECTION';

/** The value this file gives the owner type "NAT" of three tables. */
const NEW_OWNER_TYPE = 'NATL';
/** The activity category this file adds. */
const NEW_CATEGORY = 'Browser Test Category';

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('permitted-value');

/** @param {string} name */
const snap = (name) => shoot(page, name);

/** @param {string} name */
const win = (name) => h.win(page, name);

/**
 * A button of a window by its text as shown (mnemonic marks removed).
 * @param {string} window
 * @param {string} text
 */
const button = (window, text) => h.button(page, window, text);

/**
 * A field of a window by its design name.
 * @param {string} window
 * @param {string} name
 */
const field = (window, name) => win(window).locator(`[data-name="${name}"]`);

const list = () => win(LIST).locator('[data-name="ListBox1"]');
const tables = () => win(TABLES).locator('[data-name="ListBox1"]');

/**
 * @typedef {{row: number, table: string, field: string, seq: string, value: string,
 *   selected: boolean}} ListRow
 */

/**
 * The RT2 list as shown, read in one step.
 * @returns {Promise<ListRow[]>}
 */
async function listRows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const cells = [...r.querySelectorAll('.list-cell')].map((c) => c.textContent ?? '');
        return {
          row: Number(/** @type {HTMLElement} */ (r).dataset.row),
          table: cells[0],
          field: cells[1],
          seq: cells[2],
          value: cells[3],
          selected: r.classList.contains('selected'),
        };
      }),
    );
}

/**
 * The rows of the RT2 list with these names (and value, where given).
 * @param {ListRow[]} rows
 * @param {string} table
 * @param {string} fieldName
 * @param {string} [value]
 */
const matching = (rows, table, fieldName, value) =>
  rows.filter((r) => r.table === table && r.field === fieldName && (value === undefined || r.value === value));

/**
 * The one row of the RT2 list with these names and value, as a locator.
 * @param {string} table
 * @param {string} fieldName
 * @param {string} value
 */
async function rowOf(table, fieldName, value) {
  const found = matching(await listRows(), table, fieldName, value);
  assert.equal(found.length, 1, `one row ${table} ${fieldName} ${value}`);
  return list().locator(`.list-row[data-row="${found[0].row}"]`);
}

/** The highest sequence number of a table's field in the RT2 list. */
async function highestSequence(/** @type {string} */ table, /** @type {string} */ fieldName) {
  return Math.max(...matching(await listRows(), table, fieldName).map((r) => Number(r.seq)));
}

/**
 * The rows of RT54's list as shown: table name, and whether the page shows
 * the row highlighted (class and aria-selected, which must agree).
 */
async function tableRows() {
  return tables()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const highlighted = r.classList.contains('selected');
        const aria = r.getAttribute('aria-selected') === 'true';
        return { table: r.textContent?.trim(), highlighted: highlighted && aria, mixed: highlighted !== aria };
      }),
    );
}

/** The screen as the host has it now, through the page's session. */
async function hostScreen() {
  return page.evaluate(async () => {
    const token = sessionStorage.getItem('watrix.session');
    const res = await fetch('/api/screen', { headers: { Authorization: `Bearer ${token}` } });
    return res.json();
  });
}

/** The table names that the host holds highlighted in RT54's list. */
async function hostHighlighted() {
  const screen = await hostScreen();
  const w = screen.windows.at(-1);
  assert.equal(w.name, TABLES);
  const lb = w.controls.find((/** @type {any} */ c) => c.type === 'list');
  return lb.rows.filter((/** @type {any} */ r) => r.selected).map((/** @type {any} */ r) => r.cells[0]);
}

/**
 * Waits until RT54's list shows exactly these tables highlighted.
 * @param {string[]} wanted
 */
async function waitHighlighted(wanted) {
  await page.waitForFunction(
    ([sel, names]) => {
      const shown = [...document.querySelectorAll(`${sel} .list-row.selected`)].map((r) => r.textContent?.trim());
      return JSON.stringify(shown) === JSON.stringify(names);
    },
    [`section.window[data-window="${TABLES}"] [data-name="ListBox1"]`, wanted],
  );
}

/** Releases the selected row of the RT2 list, if any, by clicking it. */
async function releaseSelection() {
  const selected = list().locator('.list-row.selected');
  if ((await selected.count()) === 0) return;
  await selected.click();
  await selected.waitFor({ state: 'detached' });
}

before(async () => {
  ({ context, page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the permitted value list from the menu', async () => {
  await h.signIn(page, 'PVTEST', 'ZZZZZZZZ');
  await button(MENU, 'Permitted Value').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT2 Permitted Value Maintenance List',
  );
  await list().locator('.list-row').first().waitFor();
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((t) => t.trim()), ['Table Name', 'Field Name', 'Seq', 'Field Value']);
  const rows = await listRows();
  // The demo data: one page, nothing selected, "NAT" of three tables.
  assert.ok(rows.length > 1900, `the demo data is on show (${rows.length} rows)`);
  assert.equal(rows.some((r) => r.selected), false);
  for (const table of ['TSRANLPR', 'TSRCITN', 'TSRLSPP']) {
    assert.equal(matching(rows, table, 'OWNER_TYPE_CODE', 'NAT').length, 1, `${table} holds NAT`);
    assert.equal(matching(rows, table, 'OWNER_TYPE_CODE', NEW_OWNER_TYPE).length, 0);
  }
  assert.equal(await list().getAttribute('aria-multiselectable'), 'false');
  assert.equal(await button(LIST, 'Add').isEnabled(), true);
  assert.equal(await button(LIST, 'Change').isEnabled(), false);
  await snap('list');
});

test('Change on a value other tables hold asks which of them to change too', async () => {
  const nat = await rowOf('TSRANLPR', 'OWNER_TYPE_CODE', 'NAT');
  await nat.click();
  await list().locator('.list-row.selected').waitFor();
  assert.equal(await nat.getAttribute('aria-selected'), 'true');
  await button(LIST, 'Change').click();

  await win(TABLES).waitFor();
  assert.equal(
    (await win(TABLES).locator('.titlebar .title').textContent())?.trim(),
    'RT54 Multiple Table Selection List',
  );
  assert.equal(await field(TABLES, 'TABLE_NAME1').inputValue(), 'TSRANLPR');
  assert.equal(await field(TABLES, 'FIELD_NAME1').inputValue(), 'OWNER_TYPE_CODE');
  assert.equal(await field(TABLES, 'FIELD_VALUE1').inputValue(), 'NAT');
  // A list of several choices, and none of them made yet.
  assert.equal(await tables().getAttribute('role'), 'listbox');
  assert.equal(await tables().getAttribute('aria-multiselectable'), 'true');
  assert.deepEqual(await tableRows(), [
    { table: 'TSRCITN', highlighted: false, mixed: false },
    { table: 'TSRLSPP', highlighted: false, mixed: false },
  ]);
  // The list's own heading is drawn once, in the list's bar.
  assert.equal((await tables().locator('.list-head').textContent())?.trim(), 'Table Name');
  await snap('tables-none');
});

test('in RT54 a click toggles a row, Space the caret row, Shift+click a run', async () => {
  const row = (/** @type {string} */ t) => tables().locator('.list-row', { hasText: t });

  // A click highlights a row, a second click on it lets it go again: the
  // host follows each time, down to no row at all.
  await row('TSRCITN').click();
  await waitHighlighted(['TSRCITN']);
  assert.deepEqual(await hostHighlighted(), ['TSRCITN']);
  await row('TSRCITN').click();
  await waitHighlighted([]);
  assert.deepEqual(await hostHighlighted(), []);

  // The first by mouse again, the second by keyboard: Down moves the caret
  // without touching the highlight, Space highlights the caret row and
  // leaves the first highlighted.
  await row('TSRCITN').click();
  await waitHighlighted(['TSRCITN']);
  assert.equal(await tables().evaluate((el) => el === document.activeElement), true);
  await page.keyboard.press('ArrowDown');
  assert.equal(await row('TSRLSPP').evaluate((el) => el.classList.contains('caret')), true);
  assert.equal(await tables().getAttribute('aria-activedescendant'), await row('TSRLSPP').getAttribute('id'));
  assert.deepEqual(await hostHighlighted(), ['TSRCITN']);
  await page.keyboard.press('Space');
  await waitHighlighted(['TSRCITN', 'TSRLSPP']);
  assert.deepEqual(await hostHighlighted(), ['TSRCITN', 'TSRLSPP']);

  // Up and Space let the first go; Shift+click on the second highlights the
  // run from the row last toggled (the first) to it, both again.
  await page.keyboard.press('ArrowUp');
  await page.keyboard.press('Space');
  await waitHighlighted(['TSRLSPP']);
  assert.deepEqual(await hostHighlighted(), ['TSRLSPP']);
  await row('TSRLSPP').click({ modifiers: ['Shift'] });
  await waitHighlighted(['TSRCITN', 'TSRLSPP']);
  assert.deepEqual(await tableRows(), [
    { table: 'TSRCITN', highlighted: true, mixed: false },
    { table: 'TSRLSPP', highlighted: true, mixed: false },
  ]);
  assert.deepEqual(await hostHighlighted(), ['TSRCITN', 'TSRLSPP']);
  // The list keeps the cursor across the host's answers.
  assert.equal(await tables().evaluate((el) => el === document.activeElement), true);
  await snap('tables-both-highlighted');
});

test('Select, then a new value in RT3 is written to all three tables', async () => {
  await button(TABLES, 'Select').click();
  await win(TABLES).waitFor({ state: 'detached' });
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'TABLE_NAME1').inputValue(), 'TSRANLPR');
  assert.equal(await field(ENTRY, 'FIELD_NAME1').inputValue(), 'OWNER_TYPE_CODE');
  assert.equal(await field(ENTRY, 'FIELD_VALUE1').inputValue(), 'NAT');
  // A row's names are not changed here.
  assert.equal(await field(ENTRY, 'TABLE_NAME1').evaluate((el) => el.readOnly), true);
  await snap('change-entry');

  await field(ENTRY, 'FIELD_VALUE1').fill(NEW_OWNER_TYPE);
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();
  await page.waitForFunction(
    ([sel, value]) =>
      [...document.querySelectorAll(`${sel} .list-row`)].some((r) =>
        [...r.querySelectorAll('.list-cell')].some((c) => c.textContent === value),
      ),
    [`section.window[data-window="${LIST}"] [data-name="ListBox1"]`, NEW_OWNER_TYPE],
  );
  const rows = await listRows();
  for (const table of ['TSRANLPR', 'TSRCITN', 'TSRLSPP']) {
    const owner = matching(rows, table, 'OWNER_TYPE_CODE');
    assert.deepEqual(
      owner.map((r) => [r.seq, r.value]),
      [['1', NEW_OWNER_TYPE], ['2', 'ORG']],
      `${table} now holds ${NEW_OWNER_TYPE}`,
    );
  }
  // The row changed comes back highlighted.
  const selected = rows.filter((r) => r.selected);
  assert.deepEqual(
    selected.map((r) => [r.table, r.field, r.value]),
    [['TSRANLPR', 'OWNER_TYPE_CODE', NEW_OWNER_TYPE]],
  );
  await snap('changed-in-three-tables');
});

test('a new activity category with its sample row through RT3D and RT3E', async () => {
  const mainSeq = (await highestSequence('TSRFDACT', 'CATEGORY_TYPE_NAME')) + 1;
  const sampleSeq = (await highestSequence('TSRFDACT', 'CATEGORY_TYPE_NAME_S')) + 1;
  assert.equal(matching(await listRows(), 'TSRFDACT', 'CATEGORY_TYPE_NAME', NEW_CATEGORY).length, 0);

  await releaseSelection();
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'TABLE_NAME1').inputValue(), '');

  // ">>" offers the pairs of names the table holds, each once, without the
  // two sub-lists of the activity categories; Cancel leaves the entry as it was.
  await button(ENTRY, '>>').click();
  await win(NAMES).waitFor();
  const pairs = await win(NAMES)
    .locator('.list-row')
    .evaluateAll((els) => els.map((r) => [...r.querySelectorAll('.list-cell')].map((c) => c.textContent).join(' ')));
  assert.ok(pairs.includes('TSRFDACT CATEGORY_TYPE_NAME'), pairs.slice(0, 5).join(', '));
  assert.ok(pairs.includes('TSRANLPR OWNER_TYPE_CODE'));
  assert.equal(pairs.filter((p) => p.startsWith('TSRFDACT CATEGORY_TYPE_NAME_')).length, 0);
  assert.equal(new Set(pairs).size, pairs.length);
  await snap('names');
  await button(NAMES, 'Cancel').click();
  await win(NAMES).waitFor({ state: 'detached' });
  assert.equal(await field(ENTRY, 'TABLE_NAME1').inputValue(), '');

  await field(ENTRY, 'TABLE_NAME1').click();
  await page.keyboard.type('TSRFDACT');
  await page.keyboard.press('Tab');
  // ">>" stands between the table name and the field name.
  await page.keyboard.press('Tab');
  assert.equal(await field(ENTRY, 'FIELD_NAME1').evaluate((el) => el === document.activeElement), true);
  await page.keyboard.type('CATEGORY_TYPE_NAME');
  await field(ENTRY, 'FIELD_VALUE1').fill(NEW_CATEGORY);
  await field(ENTRY, 'SEQUENCE_NUMBER1').fill(String(mainSeq));
  await field(ENTRY, 'FIELD_DESCRIPTION1').fill('A category added by the browser test.');
  await page.keyboard.press('Alt+KeyT');

  const category = win(CATEGORY);
  await category.waitFor();
  assert.equal(
    (await category.locator('.titlebar .title').textContent())?.trim(),
    'RT3D New Activity Category',
  );
  const measure = category.getByRole('checkbox', { name: 'Measurement/Observation' });
  const sample = category.getByRole('checkbox', { name: 'Sample' });
  assert.equal(await measure.isChecked(), false);
  assert.equal(await sample.isChecked(), false);
  await sample.check();
  await page.waitForFunction(
    (sel) => /** @type {HTMLInputElement|null} */ (document.querySelector(sel))?.checked === true,
    `section.window[data-window="${CATEGORY}"] [data-name="FLAG2"] input`,
  );
  await snap('new-category-sample-ticked');
  await button(CATEGORY, 'Accept').click();

  await win(SEQUENCE).waitFor();
  assert.equal(await field(SEQUENCE, 'TABLE_NAME1').inputValue(), 'TSRFDACT');
  assert.equal(await field(SEQUENCE, 'FIELD_NAME1').inputValue(), 'CATEGORY_TYPE_NAME_S');
  // The next free number of the sample list is proposed.
  assert.equal(await field(SEQUENCE, 'SEQUENCE_NUMBER1').inputValue(), String(sampleSeq));
  await snap('sequence-proposed');
  await page.keyboard.press('Enter');
  await win(SEQUENCE).waitFor({ state: 'detached' });
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();

  await page.waitForFunction(
    ([sel, value]) =>
      [...document.querySelectorAll(`${sel} .list-row .list-cell`)].filter((c) => c.textContent === value).length === 2,
    [`section.window[data-window="${LIST}"] [data-name="ListBox1"]`, NEW_CATEGORY],
  );
  const rows = await listRows();
  assert.deepEqual(
    matching(rows, 'TSRFDACT', 'CATEGORY_TYPE_NAME', NEW_CATEGORY).map((r) => [r.seq, r.selected]),
    [[String(mainSeq), true]],
  );
  assert.deepEqual(
    matching(rows, 'TSRFDACT', 'CATEGORY_TYPE_NAME_S', NEW_CATEGORY).map((r) => r.seq),
    [String(sampleSeq)],
  );
  assert.equal(matching(rows, 'TSRFDACT', 'CATEGORY_TYPE_NAME_M', NEW_CATEGORY).length, 0);
  await snap('category-added');
});

test('delete asks first in RT2A, and a row of one table is dropped in place', async () => {
  const before = await listRows();
  const gone = await rowOf('TSMSTATN', 'AQUIFER_TYPE_NAME', 'SEMI-CONFINED');
  await gone.click();
  await list().locator('.list-row.selected', { hasText: 'SEMI-CONFINED' }).waitFor();
  await button(LIST, 'Delete').click();

  const dialog = win(DELETE);
  await dialog.waitFor();
  assert.equal((await dialog.locator('.titlebar .title').textContent())?.trim(), 'RT2A Delete Permitted Value');
  assert.equal(await field(DELETE, 'TABLE_NAME1').inputValue(), 'TSMSTATN');
  assert.equal(await field(DELETE, 'FIELD_NAME1').inputValue(), 'AQUIFER_TYPE_NAME');
  assert.equal(await field(DELETE, 'FIELD_VALUE1').inputValue(), 'SEMI-CONFINED');
  assert.equal(await field(DELETE, 'SEQUENCE_NUMBER1').inputValue(), '2');
  assert.equal(await win(LIST).evaluate((el) => el.inert), true);
  await snap('delete-confirm');

  await button(DELETE, 'Delete').click();
  await dialog.waitFor({ state: 'detached' });
  await list().locator('.list-row', { hasText: 'SEMI-CONFINED' }).waitFor({ state: 'detached' });
  const after = await listRows();
  assert.equal(after.length, before.length - 1);
  assert.deepEqual(
    matching(after, 'TSMSTATN', 'AQUIFER_TYPE_NAME').map((r) => r.value),
    ['CONFINED', 'UNCONFINED'],
  );
  assert.equal(after.some((r) => r.selected), false);
  assert.equal(await button(LIST, 'Delete').isEnabled(), false);
  await snap('deleted');
});

test('a category is deleted with its companion row after RT2B', async () => {
  await (await rowOf('TSRFDACT', 'CATEGORY_TYPE_NAME', NEW_CATEGORY)).click();
  await list().locator('.list-row.selected', { hasText: NEW_CATEGORY }).waitFor();
  await page.keyboard.press('Alt+KeyD');
  await win(DELETE).waitFor();
  assert.equal(await field(DELETE, 'FIELD_VALUE1').inputValue(), NEW_CATEGORY);
  await button(DELETE, 'Delete').click();

  const companion = win(COMPANION);
  await companion.waitFor();
  assert.equal(await field(COMPANION, 'TABLE_NAME1').inputValue(), 'TSRFDACT');
  assert.equal(await field(COMPANION, 'FIELD_NAME1').inputValue(), 'CATEGORY_TYPE_NAME_S');
  assert.equal(await field(COMPANION, 'FIELD_VALUE1').inputValue(), NEW_CATEGORY);
  await snap('companion');
  await button(COMPANION, 'Accept').click();
  await companion.waitFor({ state: 'detached' });
  await list().locator('.list-row', { hasText: NEW_CATEGORY }).first().waitFor({ state: 'detached' });
  const rows = await listRows();
  assert.equal(rows.filter((r) => r.value === NEW_CATEGORY).length, 0);
  // The rest of the categories stay.
  assert.ok(matching(rows, 'TSRFDACT', 'CATEGORY_TYPE_NAME').length >= 45);
});

test('Close goes back to the menu', async () => {
  await releaseSelection();
  await page.keyboard.press('Alt+KeyL');
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
  // Out of the page's way for the files that come after this one.
  await page.keyboard.press('Alt+KeyL');
  await page.getByRole('alertdialog').getByText('The session has ended.').waitFor();
});
