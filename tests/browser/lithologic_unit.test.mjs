// The lithologic unit windows in a real browser, driven as a person would:
// open the list from the menu, which shows the organisation's units by code
// with no paging buttons; add a unit and meet the required-field mark, then
// see the list begin at the new row, the rows before it out of view; open
// the list again to see them all; change the name, the code protected, and
// see the list begin at that row once more; delete with confirmation; close.
//
// WATRIX_URL: the address of a running `watrix serve` (required), over the
// demo data (data/TSMLTHUN.csv: 18 units of "ZZZZZZZZ", "BECA" to "SOHO").
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT42_LITHOLOGIC_UNIT_MAINT_LIST';
const DELETE = 'RT42A_DELETE_LITHOLOGIC_UNIT';
const ENTRY = 'RT43_LITHOLOGIC_UNIT_DATA_ENTRY';

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('lithologic-unit');

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

/** The list as shown: code, name and whether the row is selected. */
async function rows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const cells = [...r.querySelectorAll('.list-cell')].map((c) => c.textContent ?? '');
        return { code: cells[0], name: cells[1], selected: r.classList.contains('selected') };
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

async function openList() {
  await button(MENU, 'Lithologic Unit').click();
  await win(LIST).waitFor();
  await firstRowIs('BECA');
}

const kDemoCodes = [
  'BECA', 'BEFR', 'BEINSACA', 'BEINSASH', 'BEINSASHCA', 'BEINSE', 'BEINSICAGY', 'BEMASA',
  'BESOCAKA', 'BESOGYDOWISH', 'GE', 'HY', 'MI', 'SEALTE', 'SEISTE', 'SETE', 'SEUN', 'SOHO',
];

before(async () => {
  ({ context, page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the list of the organisation\'s units by code', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ');
  await openList();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT42 Lithologic Unit Maintenance List',
  );
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((x) => x.trim()), ['USGS Code', 'Name']);
  const shown = await rows();
  assert.deepEqual(shown.map((r) => r.code), kDemoCodes);
  assert.equal(shown[0].name, 'Bedrock, Carbonate');
  assert.equal(shown.some((r) => r.selected), false);
  assert.equal(await button(LIST, 'Add').isEnabled(), true);
  assert.equal(await button(LIST, 'Change').isEnabled(), false);
  assert.equal(await button(LIST, 'Delete').isEnabled(), false);
  await snap('list');
});

test('Add: a blank name is marked; once given, the list begins at the new row', async () => {
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  assert.equal(
    (await win(ENTRY).locator('.titlebar .title').textContent())?.trim(),
    'RT43 Lithologic Unit Data Entry',
  );
  await field(ENTRY, 'TSMLTHUN_CD1').fill('MIBR');
  await button(ENTRY, 'Accept').click();
  await acknowledge('An entry must be made in this field.', 'add-required');
  await page.waitForFunction(
    (sel) => document.querySelector(sel)?.classList.contains('error'),
    `section.window[data-window="${ENTRY}"] [data-name="NAME1"]`,
  );
  await field(ENTRY, 'NAME1').fill('Browser test unit');
  await snap('add-filled');
  await page.keyboard.press('Enter');
  await win(ENTRY).waitFor({ state: 'detached' });
  // The list reads from the row in hand: the rows before it are out of view.
  await firstRowIs('MIBR');
  const shown = await rows();
  assert.deepEqual(shown.map((r) => r.code), ['MIBR', 'SEALTE', 'SEISTE', 'SETE', 'SEUN', 'SOHO']);
  assert.deepEqual(shown.map((r) => r.selected), [true, false, false, false, false, false]);
  assert.equal(shown[0].name, 'Browser test unit');
  await snap('added');
});

test('an existing code is refused, and the window stays', async () => {
  await rowOf('MIBR').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  await field(ENTRY, 'TSMLTHUN_CD1').fill('SOHO');
  await field(ENTRY, 'NAME1').fill('Another soil');
  await button(ENTRY, 'Accept').click();
  await acknowledge('A Lithologic Unit with this Code already exists.', 'add-existing');
  assert.equal(await field(ENTRY, 'NAME1').inputValue(), 'Another soil');
  // Cancel reads again from the row in hand, which comes back from the
  // window as it stands: the list begins at the code typed.
  await page.keyboard.press('Escape');
  await win(ENTRY).waitFor({ state: 'detached' });
  await firstRowIs('SOHO');
  assert.deepEqual((await rows()).map((r) => r.code), ['SOHO']);
  await snap('cancel-after-refusal');
});

test('Cancel right after Add reads from the emptied row in hand: the top', async () => {
  // The row found again is selected; a second click releases it.
  await rowOf('SOHO').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  await page.keyboard.press('Escape');
  await win(ENTRY).waitFor({ state: 'detached' });
  await firstRowIs('BECA');
  assert.equal((await rows()).length, kDemoCodes.length + 1);
  await snap('cancel-after-add');
});

test('a change keeps the code, and the list begins at the changed row', async () => {
  await rowOf('MIBR').dblclick();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'TSMLTHUN_CD1').inputValue(), 'MIBR');
  assert.equal(await field(ENTRY, 'TSMLTHUN_CD1').evaluate((el) => el.readOnly || el.disabled), true);
  assert.equal(await field(ENTRY, 'D_USERID_CODE1').inputValue(), 'JSMITH');
  await field(ENTRY, 'NAME1').fill('Browser test unit, renamed');
  await snap('change');
  await page.keyboard.press('Alt+KeyT');
  await win(ENTRY).waitFor({ state: 'detached' });
  await firstRowIs('MIBR');
  await list().locator('.list-row.selected', { hasText: 'Browser test unit, renamed' }).waitFor();
  assert.deepEqual((await rows()).map((r) => r.code), ['MIBR', 'SEALTE', 'SEISTE', 'SETE', 'SEUN', 'SOHO']);
  await snap('changed');
});

test('delete asks first, and Delete removes the row and closes up the list', async () => {
  await rowOf('MIBR').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await rowOf('SEISTE').click();
  await list().locator('.list-row.selected', { hasText: 'SEISTE' }).waitFor();
  await rowOf('MIBR').click();
  await list().locator('.list-row.selected', { hasText: 'MIBR' }).waitFor();
  await page.keyboard.press('Alt+KeyD');
  await win(DELETE).waitFor();
  assert.equal(
    (await win(DELETE).locator('.titlebar .title').textContent())?.trim(),
    'RT42A Delete Lithologic Unit',
  );
  assert.equal(await field(DELETE, 'TSMLTHUN_CD1').inputValue(), 'MIBR');
  assert.equal(await field(DELETE, 'NAME1').inputValue(), 'Browser test unit, renamed');
  await snap('delete-confirm');
  await button(DELETE, 'Delete').click();
  await win(DELETE).waitFor({ state: 'detached' });
  await rowOf('MIBR').waitFor({ state: 'detached' });
  assert.deepEqual((await rows()).map((r) => r.code), ['SEALTE', 'SEISTE', 'SETE', 'SEUN', 'SOHO']);
  await snap('deleted');
});

test('Close goes back to the menu; opened again, the list shows the whole table', async () => {
  await page.keyboard.press('Alt+KeyL');
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
  await openList();
  assert.deepEqual((await rows()).map((r) => r.code), kDemoCodes);
  await page.keyboard.press('Alt+KeyL');
  await win(MENU).waitFor();
});
