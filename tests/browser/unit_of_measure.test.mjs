// The unit of measure windows in a real browser, driven as a person would:
// open the list from the menu's second page, page down and up over the demo
// units and see that the strict pages neither overlap nor lose a row, add a
// unit through the combo box of unit types and see the list start over,
// meet the duplicate message on a change of the description alone, change
// a short form on the second page and see the page's first row drop out,
// delete with confirmation, close.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const MORE = 'RT1A_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT34_UNIT_OF_MEASURE_MAINT_LIST';
const DELETE = 'RT34A_DELETE_UNIT_OF_MEASURE';
const ENTRY = 'RT35_UNIT_OF_MEASURE_DATA_ENTRY';

/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('unit-of-measure');

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

/** The rows as shown, "TYPE/short", and which is selected. */
async function rows() {
  return list()
    .locator('.list-row')
    .evaluateAll((els) =>
      els.map((r) => {
        const cells = [...r.querySelectorAll('.list-cell')].map((c) => (c.textContent ?? '').trim());
        return { key: `${cells[0]}/${cells[1]}`, selected: r.classList.contains('selected') };
      }),
    );
}
const keys = async () => (await rows()).map((r) => r.key);

/** Waits until the list's first row is `key`. */
async function firstRowIs(/** @type {string} */ key) {
  await page.waitForFunction(
    ([sel, k]) => {
      const cells = document.querySelector(sel)?.querySelectorAll('.list-cell');
      return cells && cells.length >= 2 && `${cells[0].textContent?.trim()}/${cells[1].textContent?.trim()}` === k;
    },
    [`section.window[data-window="${LIST}"] .list-row`, key],
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

/** @type {string[]} */
let page1 = [];

before(async () => {
  ({ page } = await h.openBrowser());
});

after(h.closeBrowser);

test('opens the list from the second page of the menu', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ');
  await button(MENU, 'Additional Tables >>>').click();
  await win(MORE).waitFor();
  await button(MORE, 'Unit of Measure').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT34 Unit Of Measure Maintenance List',
  );
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((t) => t.trim()), ['Type', 'UOM', 'Description']);
  page1 = await keys();
  assert.equal(page1.length, 100);
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);
  await snap('first-page');
});

test('the strict pages neither overlap nor lose a row', async () => {
  await button(LIST, 'Next').click();
  await page.waitForFunction(
    (sel) => document.querySelectorAll(sel).length < 100,
    `section.window[data-window="${LIST}"] .list-row`,
  );
  const page2 = await keys();
  assert.ok(page2.length > 0);
  assert.equal(page2.some((k) => page1.includes(k)), false, 'no row on both pages');
  assert.equal(new Set([...page1, ...page2]).size, page1.length + page2.length);
  assert.equal(await button(LIST, 'Prev').isEnabled(), true);
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  await snap('second-page');

  await button(LIST, 'Prev').click();
  await firstRowIs(page1[0]);
  assert.deepEqual(await keys(), page1);
});

test('a change of the description alone meets its own row', async () => {
  await list().locator('.list-row').nth(1).dblclick();
  await win(ENTRY).waitFor();
  assert.equal(
    (await win(ENTRY).locator('.titlebar .title').textContent())?.trim(),
    'RT35 Unit Of Measure Data Entry',
  );
  await field(ENTRY, 'DESCRIPTION_TEXT1').fill('A new description');
  await button(ENTRY, 'Accept').click();
  await acknowledge(
    'A Unit of Measure with this Unit of Measure Type and Name already exist',
    'change-duplicate',
  );
  await win(ENTRY).waitFor();
  await button(ENTRY, 'Cancel').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();
});

test('after a change on the second page its first row drops out until Prev', async () => {
  // The row found again after the return stays selected, and paging waits
  // until it is let go.
  const selected = list().locator('.list-row.selected');
  assert.equal(await selected.count(), 1);
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  await selected.click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  await button(LIST, 'Next').click();
  await page.waitForFunction(
    (sel) => document.querySelectorAll(sel).length < 100,
    `section.window[data-window="${LIST}"] .list-row`,
  );
  const page2 = await keys();
  const [firstType] = page2[0].split('/');
  const third = page2[2];
  await list().locator('.list-row').nth(2).dblclick();
  await win(ENTRY).waitFor();
  await field(ENTRY, 'SHORT_FORM_NAME1').fill('zzbrowser');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await win(LIST).waitFor();
  await firstRowIs(page2[1]);
  const after = await keys();
  assert.equal(after.includes(page2[0]), false, 'the first row of the page is out of view');
  assert.equal(after[0], page2[1]);
  assert.ok(after.includes(`${third.split('/')[0]}/zzbrowser`));
  assert.ok(firstType.length > 0);
  await snap('after-change');
});

test('an add through the combo box starts the list over', async () => {
  // Let the selected row go, then add.
  const selected = list().locator('.list-row.selected');
  if ((await selected.count()) > 0) {
    await selected.click();
    await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  }
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  const combo = field(ENTRY, 'UOM_TYPE1');
  const options = await combo.locator('option').evaluateAll((els) =>
    els.map((o) => /** @type {HTMLOptionElement} */ (o).value).filter((v) => v !== ''),
  );
  assert.deepEqual(options, ['AREA', 'TEMP', 'NONE', 'SUBST', 'PROD', 'LEN', 'TAX', 'TIME', 'MISC', 'FLOW', 'VEL', 'VOL']);
  await combo.selectOption('AREA');
  await field(ENTRY, 'SHORT_FORM_NAME1').fill('a-bt');
  await field(ENTRY, 'DESCRIPTION_TEXT1').fill('Browser test area');
  await snap('add');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await firstRowIs(page1[0] < 'AREA/a-bt' ? page1[0] : 'AREA/a-bt');
  const shown = await rows();
  assert.equal(shown.length, 100);
  assert.equal(shown.find((r) => r.key === 'AREA/a-bt')?.selected, true);
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);
  await snap('added');
});

test('delete asks first, and Delete removes the row', async () => {
  await button(LIST, 'Delete').click();
  const dialog = win(DELETE);
  await dialog.waitFor();
  assert.equal(
    (await dialog.locator('.titlebar .title').textContent())?.trim(),
    'RT34A Delete Unit of Measure',
  );
  assert.equal(await field(DELETE, 'SHORT_FORM_NAME1').inputValue(), 'a-bt');
  await snap('delete-confirm');
  await button(DELETE, 'Delete').click();
  await dialog.waitFor({ state: 'detached' });
  assert.equal((await keys()).includes('AREA/a-bt'), false);
  await snap('deleted');
});

test('Close goes back to the menu', async () => {
  await button(LIST, 'Close').click();
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
});
