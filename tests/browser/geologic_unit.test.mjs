// The geologic unit windows in a real browser, driven as a person would:
// open the list from the menu, where the codes that begin with a digit stay
// out of the first view; search with empty fields to see them; page down
// and up through the stack of page keys; search by a name alone and meet
// the order by name; add a unit through the Type Code drop-down and meet
// the required-field mark; add an existing code and meet the insert's
// refusal; change a name; delete with confirmation; close.
//
// WATRIX_URL: the address of a running `watrix serve` (required), over the
// demo data (data/TSMGEOUN.csv: 8,828 units, all but "BASEMENT" and
// "BEDROCK" with a code that begins with a digit).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT46_GEOLOGIC_UNIT_MAINT_LIST';
const DELETE = 'RT46A_DELTE_GEOLOGIC_UNIT_CONFIR';
const ENTRY = 'RT47_GEOLOGIC_UNIT_DATA_ENTRY';

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('geologic-unit');

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
const rowOf = (/** @type {string} */ code) =>
  list().locator('.list-row', { has: page.locator('.list-cell', { hasText: new RegExp(`^${code}$`) }) });

/** The list as shown: code, type, state, name and whether the row is selected. */
async function rows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const cells = [...r.querySelectorAll('.list-cell')].map((c) => c.textContent ?? '');
        return { code: cells[0], type: cells[1], state: cells[2], name: cells[3], selected: r.classList.contains('selected') };
      }),
    );
}

/** Waits until the list's first row shows `code`. */
async function firstRowIs(/** @type {string} */ code) {
  await list().locator('.list-row').first().locator('.list-cell').first().filter({ hasText: new RegExp(`^${code}$`) }).waitFor();
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
  ({ context, page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the list, which leaves out the codes below "A"', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ');
  await button(MENU, 'Geological Unit').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT46 Geologic Unit Maintenance List',
  );
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((x) => x.trim()), ['USGS Code', 'Type Code', 'State Code', 'Name']);
  const shown = await rows();
  assert.deepEqual(shown.map((r) => r.code), ['BASEMENT', 'BEDROCK']);
  assert.equal(await button(LIST, 'Prev').isEnabled(), false);
  assert.equal(await button(LIST, 'Next').isEnabled(), false);
  assert.equal(await button(LIST, 'Add').isEnabled(), true);
  assert.equal(await button(LIST, 'Change').isEnabled(), false);
  await snap('list');
});

test('a search with empty fields shows the codes below "A", 200 to a page', async () => {
  await button(LIST, 'Search').click();
  await firstRowIs('000AARF');
  const page1 = await rows();
  assert.equal(page1.length, 200);
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
  assert.equal(await button(LIST, 'Prev').isEnabled(), false);
  await snap('search-all');

  // Next reads on from the last row of the page, which comes again first.
  await button(LIST, 'Next').click();
  await firstRowIs(page1[199].code);
  const page2 = await rows();
  assert.equal(page2.length, 200);
  assert.equal(await button(LIST, 'Prev').isEnabled(), true);
  await button(LIST, 'Next').click();
  await firstRowIs(page2[199].code);
  await snap('page-3');

  // Prev takes the page before from the stack of page keys.
  await button(LIST, 'Prev').click();
  await firstRowIs(page2[0].code);
  assert.deepEqual((await rows()).map((r) => r.code), page2.map((r) => r.code));
  await button(LIST, 'Prev').click();
  await firstRowIs('000AARF');
  assert.deepEqual((await rows()).map((r) => r.code), page1.map((r) => r.code));
  assert.equal(await button(LIST, 'Prev').isEnabled(), false);
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
  await snap('back-to-page-1');
});

test('a name alone sorts by name; a code sorts by code', async () => {
  await field(LIST, 'NAME1').fill('Geologic unit 111ALVM');
  await page.keyboard.press('Enter');
  await list().locator('.list-row').first().locator('.list-cell').nth(3).filter({ hasText: /^Geologic unit 111ALVM, / }).waitFor();
  const byName = await rows();
  const names = byName.map((r) => r.name);
  assert.deepEqual(names, [...names].sort((a, b) => (a < b ? -1 : a > b ? 1 : 0)));
  await snap('search-by-name');
  // With a code the name narrows nothing: codes from that code on.
  await field(LIST, 'TSMGEOUN_CD1').fill('4');
  await button(LIST, 'Search').click();
  await list().locator('.list-row').first().locator('.list-cell').first().filter({ hasText: /^4/ }).waitFor();
  const byCode = (await rows()).map((r) => r.code);
  assert.deepEqual(byCode, [...byCode].sort());
  assert.equal((await rows()).some((r) => !r.name.startsWith('Geologic unit 111ALVM')), true);
  await snap('search-by-code');
});

test('Add through the drop-down; a blank name is marked until it is given', async () => {
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  assert.equal(
    (await win(ENTRY).locator('.titlebar .title').textContent())?.trim(),
    'RT47 Geologic Unit Data Entry',
  );
  const options = await field(ENTRY, 'TYPE_CODE1').locator('option').allTextContents();
  assert.deepEqual(options.filter((o) => o.trim() !== ''), ['Hydrologic', 'Geologic', 'Both']);
  await field(ENTRY, 'TSMGEOUN_CD1').fill('ZZBROWSER');
  await field(ENTRY, 'STATE_CODE1').fill('CO');
  await field(ENTRY, 'TYPE_CODE1').selectOption({ label: 'Geologic' });
  await snap('add-filled');
  await button(ENTRY, 'Accept').click();
  await acknowledge('An entry must be made in this field.', 'add-required');
  await page.waitForFunction(
    (sel) => document.querySelector(sel)?.classList.contains('error'),
    `section.window[data-window="${ENTRY}"] [data-name="NAME1"]`,
  );
  await field(ENTRY, 'NAME1').fill('Browser test unit');
  await page.keyboard.press('Enter');
  await win(ENTRY).waitFor({ state: 'detached' });
  // After an add the list goes back to its first view, from "A".
  await rowOf('ZZBROWSER').waitFor();
  const shown = await rows();
  assert.deepEqual(
    shown.map((r) => [r.code, r.type, r.state, r.selected]),
    [['BASEMENT', 'B', 'AL', false], ['BEDROCK', 'B', 'AL', false], ['ZZBROWSER', 'G', 'CO', true]],
  );
  assert.equal(shown[2].name, 'Browser test unit');
  await snap('added');
});

test('an existing code is refused by the insert, and the window stays', async () => {
  await rowOf('ZZBROWSER').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  await field(ENTRY, 'TSMGEOUN_CD1').fill('BEDROCK');
  await field(ENTRY, 'STATE_CODE1').fill('CO');
  await field(ENTRY, 'TYPE_CODE1').selectOption({ label: 'Both' });
  await field(ENTRY, 'NAME1').fill('Another bedrock');
  await button(ENTRY, 'Accept').click();
  await acknowledge('Geologic Unit already exists', 'add-existing');
  assert.equal(await field(ENTRY, 'NAME1').inputValue(), 'Another bedrock');
  await page.keyboard.press('Escape');
  await win(ENTRY).waitFor({ state: 'detached' });
  assert.deepEqual((await rows()).map((r) => r.code), ['BASEMENT', 'BEDROCK', 'ZZBROWSER']);
});

test('a change keeps the code and rewrites the name', async () => {
  await rowOf('ZZBROWSER').dblclick();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'TSMGEOUN_CD1').inputValue(), 'ZZBROWSER');
  assert.equal(await field(ENTRY, 'TSMGEOUN_CD1').evaluate((el) => el.readOnly || el.disabled), true);
  assert.equal(await field(ENTRY, 'D_USERID_CODE1').inputValue(), 'JSMITH');
  await field(ENTRY, 'NAME1').fill('Browser test unit, renamed');
  await snap('change');
  await page.keyboard.press('Alt+KeyT');
  await win(ENTRY).waitFor({ state: 'detached' });
  await list().locator('.list-row.selected', { hasText: 'Browser test unit, renamed' }).waitFor();
  await snap('changed');
});

test('delete asks first, and Delete removes the row', async () => {
  await rowOf('ZZBROWSER').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await rowOf('ZZBROWSER').click();
  await list().locator('.list-row.selected', { hasText: 'ZZBROWSER' }).waitFor();
  await page.keyboard.press('Alt+KeyD');
  await win(DELETE).waitFor();
  assert.equal(
    (await win(DELETE).locator('.titlebar .title').textContent())?.trim(),
    'RT46A Delete Geologic Unit',
  );
  assert.equal(await field(DELETE, 'TSMGEOUN_CD1').inputValue(), 'ZZBROWSER');
  await snap('delete-confirm');
  await button(DELETE, 'Delete').click();
  await win(DELETE).waitFor({ state: 'detached' });
  await rowOf('ZZBROWSER').waitFor({ state: 'detached' });
  assert.deepEqual((await rows()).map((r) => r.code), ['BASEMENT', 'BEDROCK']);
  await snap('deleted');
});

test('Close goes back to the menu', async () => {
  await page.keyboard.press('Alt+KeyL');
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
});
