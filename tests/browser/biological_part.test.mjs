// The biological part windows in a real browser, driven as a person would:
// open the list from the menu, watch the list set its own Add, Change and
// Delete buttons as rows are selected and released, add a part, meet the
// name check of the action blocks on a rename, rename, delete with
// confirmation, close.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT48_BIO_PART_MAINT_LIST';
const DELETE = 'RT48A_DELTE_BIOLOGICAL_PART_CONF';
const ENTRY = 'RT49_BIO_PART_DATA_ENTRY';

/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('biological-part');

/** @param {string} name */
const snap = (name) => shoot(page, name);
/** @param {string} name */
const win = (name) => h.win(page, name);
/**
 * @param {string} window
 * @param {string} text
 */
const button = (window, text) => h.button(page, window, text);
/**
 * @param {string} window
 * @param {string} name
 */
const field = (window, name) => win(window).locator(`[data-name="${name}"]`);

const list = () => win(LIST).locator('[data-name="ListBox1"]');
const rowOf = (/** @type {string} */ name) =>
  list().locator('.list-row', { has: page.locator('.list-cell', { hasText: new RegExp(`^${name}$`) }) });

/** The names shown and which is selected. */
async function rows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => ({
        name: r.querySelector('.list-cell')?.textContent ?? '',
        selected: r.classList.contains('selected'),
      })),
    );
}

/** Add, Change, Delete: which are enabled. */
async function buttons() {
  return [
    await button(LIST, 'Add').isEnabled(),
    await button(LIST, 'Change').isEnabled(),
    await button(LIST, 'Delete').isEnabled(),
  ];
}

/** Waits for the message box, checks its text, and presses OK. */
async function acknowledge(/** @type {string} */ text, /** @type {string} */ shotName) {
  const box = page.getByRole('alertdialog');
  await box.waitFor();
  assert.equal((await box.locator('.msgbox-text').textContent())?.trim(), text);
  await snap(shotName);
  await box.getByRole('button', { name: 'OK' }).click();
  await box.waitFor({ state: 'detached' });
}

before(async () => {
  ({ page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the biological part list from the menu', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ');
  await button(MENU, 'Bio Part').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT48 Biological Part Maintenance List',
  );
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((t) => t.trim()), ['Bio Part']);
  const shown = await rows();
  assert.ok(shown.length > 10, 'the demo parts show');
  const names = shown.map((r) => r.name);
  assert.deepEqual(names, [...names].sort((a, b) => (a < b ? -1 : a > b ? 1 : 0)), 'by name');
  assert.deepEqual(await buttons(), [true, false, false]);
  await snap('list');
});

test('the list sets its own buttons as a row is selected and released', async () => {
  await rowOf('Blood').click();
  await list().locator('.list-row.selected', { hasText: 'Blood' }).waitFor();
  assert.deepEqual(await buttons(), [false, true, true]);
  await snap('row-selected');
  await rowOf('Blood').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  assert.deepEqual(await buttons(), [true, false, false]);
});

test('Add takes a new part, which the list selects on return', async () => {
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  assert.equal(
    (await win(ENTRY).locator('.titlebar .title').textContent())?.trim(),
    'RT49 Biological Part Data Entry',
  );
  assert.equal(await field(ENTRY, 'NAME1').inputValue(), '');
  await field(ENTRY, 'NAME1').fill('Browser part');
  await snap('add');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await rowOf('Browser part').waitFor();
  assert.equal((await rows()).find((r) => r.name === 'Browser part')?.selected, true);
  assert.deepEqual(await buttons(), [false, true, true]);
  await snap('added');
});

test('a rename to a name in use meets the check of the action block', async () => {
  await rowOf('Browser part').dblclick();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'NAME1').inputValue(), 'Browser part');
  assert.equal(await field(ENTRY, 'D_USERID_CODE1').inputValue(), 'JSMITH');
  await field(ENTRY, 'NAME1').fill('Blood');
  await button(ENTRY, 'Accept').click();
  await acknowledge('Biological Part already exists', 'rename-refused');
  await win(ENTRY).waitFor();
  // The window shows what was typed.
  assert.equal(await field(ENTRY, 'NAME1').inputValue(), 'Blood');

  await field(ENTRY, 'NAME1').fill('Browser part renamed');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await rowOf('Browser part renamed').waitFor();
  const shown = await rows();
  assert.equal(shown.some((r) => r.name === 'Browser part'), false);
  assert.equal(shown.find((r) => r.name === 'Browser part renamed')?.selected, true);
  await snap('renamed');
});

test('delete asks first, and Delete removes the row and resets the buttons', async () => {
  await button(LIST, 'Delete').click();
  const dialog = win(DELETE);
  await dialog.waitFor();
  assert.equal(
    (await dialog.locator('.titlebar .title').textContent())?.trim(),
    'RT48A Delete Biological Part',
  );
  assert.equal(await field(DELETE, 'NAME1').inputValue(), 'Browser part renamed');
  await snap('delete-confirm');
  await button(DELETE, 'Delete').click();
  await dialog.waitFor({ state: 'detached' });
  await rowOf('Browser part renamed').waitFor({ state: 'detached' });
  assert.equal((await rows()).some((r) => r.selected), false);
  assert.deepEqual(await buttons(), [true, false, false]);
  await snap('deleted');
});

test('Close goes back to the menu', async () => {
  await button(LIST, 'Close').click();
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
});
