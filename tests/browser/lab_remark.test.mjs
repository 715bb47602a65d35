// The lab remark windows in a real browser, driven as a person would: open
// the list from the menu, add a remark and meet the required-field mark,
// correct it, change a description and meet the duplicate message, change a
// short name, delete with confirmation, close; by mouse and by keyboard.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT50_LAB_REMARK_MAINT_LIST';
const DELETE = 'RT50A_DLETE_LAB_REMARK_CONFIRMAT';
const ENTRY = 'RT51_LAB_REMARK_DATA_ENTRY';

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('lab-remark');

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
const rowOf = (/** @type {string} */ shortName) =>
  list().locator('.list-row', { has: page.locator('.list-cell', { hasText: new RegExp(`^${shortName}$`) }) });

/** The list as shown: short name, description and whether the row is selected. */
async function rows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const cells = [...r.querySelectorAll('.list-cell')].map((c) => c.textContent ?? '');
        return { short: cells[0], description: cells[1], selected: r.classList.contains('selected') };
      }),
    );
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

test('signs in and opens the lab remark list from the menu', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ');
  await button(MENU, 'Lab Remark').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT50 Lab Remark Maintenance List',
  );
  // The menu is hidden while the list runs.
  assert.equal(await win(MENU).count(), 0);
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((h) => h.trim()), ['Short Name', 'Description']);
  // The heading statics over the list ("Short Name", "Description " with its
  // blank) are drawn once, in the list's own bar, and not again above it.
  const shownStatics = await win(LIST)
    .locator('.ctl-static')
    .evaluateAll((els) => els.filter((e) => !(/** @type {HTMLElement} */ (e).hidden)).map((e) => e.textContent));
  assert.deepEqual(shownStatics, []);
  for (const text of ['Add', 'Change', 'Delete', 'Close', 'Help']) {
    assert.equal(await button(LIST, text).count(), 1, `one button "${text}"`);
  }
  // Nothing selected: Add is offered, Change and Delete are not.
  assert.equal(await button(LIST, 'Add').isEnabled(), true);
  assert.equal(await button(LIST, 'Change').isEnabled(), false);
  assert.equal(await button(LIST, 'Delete').isEnabled(), false);
  await snap('list');
});

test('Alt+A adds; a blank description is marked until it is given', async () => {
  await page.keyboard.press('Alt+KeyA');
  await win(ENTRY).waitFor();
  assert.equal(
    (await win(ENTRY).locator('.titlebar .title').textContent())?.trim(),
    'RT51 Lab Remark Data Entry',
  );
  assert.equal(await field(ENTRY, 'TSRLBRMK_IS_NUMBER1').inputValue(), '');
  assert.equal(await field(ENTRY, 'TSRLBRMK_IS_NUMBER1').evaluate((el) => el.readOnly), true);
  await snap('add-empty');

  await field(ENTRY, 'SHORT_NAME1').click();
  await page.keyboard.type('BT1');
  await page.keyboard.press('Enter');
  await acknowledge('An entry must be made in this field.', 'add-required');
  // The description is marked and has the cursor; the short name is plain.
  const description = field(ENTRY, 'DESCRIPTION_TEXT1');
  await page.waitForFunction(
    (sel) => document.querySelector(sel)?.classList.contains('error'),
    `section.window[data-window="${ENTRY}"] [data-name="DESCRIPTION_TEXT1"]`,
  );
  assert.equal(await field(ENTRY, 'SHORT_NAME1').evaluate((el) => el.classList.contains('error')), false);
  assert.equal(await description.evaluate((el) => el === document.activeElement), true);
  await snap('add-marked');

  await page.keyboard.type('Browser test remark');
  await page.keyboard.press('Enter');
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();
  await rowOf('BT1').waitFor();
  const shown = await rows();
  const bt1 = shown.find((r) => r.short === 'BT1');
  assert.deepEqual(bt1, { short: 'BT1', description: 'Browser test remark', selected: true });
  await snap('added');
});

test('a second remark by mouse, after the first is released', async () => {
  // The new row stands selected; a click on it lets it go and offers Add.
  await rowOf('BT1').click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  await field(ENTRY, 'SHORT_NAME1').fill('BT2');
  await field(ENTRY, 'DESCRIPTION_TEXT1').fill('Second remark');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await rowOf('BT2').waitFor();
  const shown = await rows();
  assert.deepEqual(
    shown.filter((r) => /^BT[0-9]$/.test(r.short)).map((r) => [r.short, r.selected]),
    [['BT1', false], ['BT2', true]],
  );
});

test('a changed description alone meets the duplicate message', async () => {
  await rowOf('BT1').dblclick();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'SHORT_NAME1').inputValue(), 'BT1');
  assert.equal(await field(ENTRY, 'DESCRIPTION_TEXT1').inputValue(), 'Browser test remark');
  assert.match(await field(ENTRY, 'D_LAST_UPDATE_TIMESTAMP1').inputValue(), /^\d{4}-\d\d-\d\d-\d\d\.\d\d\.\d\d\.000000$/);
  assert.equal(await field(ENTRY, 'D_USERID_CODE1').inputValue(), 'JSMITH');
  assert.match(await field(ENTRY, 'TSRLBRMK_IS_NUMBER1').inputValue(), /^[1-9][0-9]*$/);
  await snap('change-open');

  await field(ENTRY, 'DESCRIPTION_TEXT1').fill('Browser test remark, corrected');
  await page.keyboard.press('Alt+KeyT');
  await acknowledge('A Lab Remark with this short name already exists.', 'change-duplicate');
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'DESCRIPTION_TEXT1').inputValue(), 'Browser test remark, corrected');
});

test('a changed short name goes through', async () => {
  await field(ENTRY, 'SHORT_NAME1').fill('BT3');
  await page.keyboard.press('Enter');
  await win(ENTRY).waitFor({ state: 'detached' });
  await rowOf('BT3').waitFor();
  const shown = await rows();
  assert.equal(shown.some((r) => r.short === 'BT1'), false);
  assert.deepEqual(shown.find((r) => r.short === 'BT3'), {
    short: 'BT3',
    description: 'Browser test remark, corrected',
    selected: true,
  });
  await snap('changed');
});

test('Esc in the data entry window goes back and reloads the list', async () => {
  await page.keyboard.press('Alt+KeyC');
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'SHORT_NAME1').inputValue(), 'BT3');
  await page.keyboard.press('Escape');
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();
  assert.equal((await rows()).find((r) => r.short === 'BT3')?.selected, true);
});

test('delete asks first, and Delete removes the row', async () => {
  await rowOf('BT2').click();
  await list().locator('.list-row.selected', { hasText: 'BT2' }).waitFor();
  await page.keyboard.press('Alt+KeyD');
  const dialog = win(DELETE);
  await dialog.waitFor();
  assert.equal(
    (await dialog.locator('.titlebar .title').textContent())?.trim(),
    'RT50A Delete Lab Remark',
  );
  assert.equal(await field(DELETE, 'SHORT_NAME1').inputValue(), 'BT2');
  assert.equal(await field(DELETE, 'DESCRIPTION_TEXT1').inputValue(), 'Second remark');
  // The list below is covered by the dialog.
  assert.equal(await win(LIST).evaluate((el) => el.inert), true);
  await snap('delete-confirm');

  await button(DELETE, 'Delete').click();
  await dialog.waitFor({ state: 'detached' });
  await rowOf('BT2').waitFor({ state: 'detached' });
  const shown = await rows();
  assert.equal(shown.some((r) => r.short === 'BT2'), false);
  assert.equal(shown.some((r) => r.selected), false);
  assert.equal(await button(LIST, 'Delete').isEnabled(), false);
  await snap('deleted');
});

test('Cancel in the delete dialog keeps the row and lets it go', async () => {
  await rowOf('BT3').click();
  await list().locator('.list-row.selected', { hasText: 'BT3' }).waitFor();
  await button(LIST, 'Delete').click();
  await win(DELETE).waitFor();
  await page.keyboard.press('Escape');
  await win(DELETE).waitFor({ state: 'detached' });
  const shown = await rows();
  assert.equal(shown.find((r) => r.short === 'BT3')?.selected, false);
});

test('Close goes back to the menu', async () => {
  await page.keyboard.press('Alt+KeyL');
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
  await snap('back-to-menu');
});
