// The reference table menu in a real browser, driven as a person would:
// sign in, read the menu, open and close its two dialogs by mouse and by
// keyboard, meet a table whose module is missing, open help, close the menu.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const URL_ = h.env.url;

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const MORE = 'RT1A_REFERENCE_TABLE_MAINT_MENU';
const CHAR_TYPE = 'RT1B_CHAR_TYPE_SELECT';

/** The table buttons of the first page with the table name over each. */
const TABLES = [
  ['Analytical Equipment', 'TSRANLEQ'],
  ['Error Message', 'TSMERMSG'],
  ['Lab Remark', 'TSRLBRMK'],
  ['Analytical Procedure', 'TSRANLPR'],
  ['Estuary', 'TSMESTRY'],
  ['Lab Sample Prep Procedure', 'TSRLSPP'],
  ['Bio Part', 'TSRBIOPT'],
  ['FIPS Hydrologic Unit', 'TSMFHU'],
  ['Lithologic Unit', 'TSMLTHUN'],
  ['Characteristic', 'TSRCHAR'],
  ['Field Gear', 'TSRFLDGR'],
  ['Permitted Value', 'TSRPRMVL'],
  ['Characteristic Alias Type', 'TSRCALT'],
  ['Geological Unit', 'TSMGEOUN'],
  ['Person Role', 'TSMPROLE'],
  ['Characteristic Type', 'TSRCHTYP'],
  ['Geopolitical Area', 'TSMGEOPA'],
  ['Project Station Role', 'TSMPSR'],
  ['Citation', 'TSRCITN'],
  ['Native American Land', 'TSMNAL'],
  ['Standard Industrial Class', 'TSMSIC'],
];
const OTHER_BUTTONS = ['Additional Tables >>>', 'Close', 'Help'];

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('menu');

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

before(async () => {
  ({ context, page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the menu', async () => {
  await h.signIn(page, 'JSMITH', 'ZZZZZZZZ', { onForm: () => snap('sign-in') });
  assert.equal(await page.locator('#login').isHidden(), true);
  assert.equal(
    (await win(MENU).locator('.titlebar .title').textContent())?.trim(),
    'RT1 Reference Table Maintenance Menu',
  );
});

test('the first page shows 24 buttons with the table names over them', async () => {
  const menu = win(MENU);
  assert.equal(await menu.locator('button.ctl').count(), 24);
  for (const text of [...TABLES.map(([b]) => b), ...OTHER_BUTTONS]) {
    assert.equal(await button(MENU, text).count(), 1, `one button "${text}"`);
  }

  const labels = await menu.locator('.ctl-static').allTextContents();
  const names = labels.map((t) => t.trim()).filter(Boolean);
  assert.equal(names.length, 21, `21 table names, got ${names.join(', ')}`);

  for (const [text, table] of TABLES) {
    const label = menu.locator('.ctl-static', { hasText: new RegExp(`^${table}$`) });
    assert.equal(await label.count(), 1, `one label ${table}`);
    const lb = await label.boundingBox();
    const bb = await button(MENU, text).boundingBox();
    assert.ok(lb && bb);
    const gap = bb.y - (lb.y + lb.height);
    assert.ok(gap >= -1 && gap <= 8, `${table} stands right above "${text}" (gap ${gap})`);
    const centre = Math.abs(lb.x + lb.width / 2 - (bb.x + bb.width / 2));
    assert.ok(centre <= 3, `${table} is centred over "${text}" (off by ${centre})`);
  }

  // The mnemonic shows underlined, and the menu is the active window.
  assert.equal(await button(MENU, 'Analytical Equipment').locator('u').textContent(), 'E');
  assert.equal(await menu.evaluate((el) => el.classList.contains('active')), true);
  await snap('menu');
});

test('"Additional Tables >>>" opens the second page, Esc closes it', async () => {
  await button(MENU, 'Additional Tables >>>').click();
  const more = win(MORE);
  await more.waitFor();
  assert.equal(
    (await more.locator('.titlebar .title').textContent())?.trim(),
    'RT1A Reference Table Menu (Continued)',
  );
  await button(MORE, 'Unit of Measure').waitFor();
  await button(MORE, 'Valid Station Type').waitFor();
  assert.ok((await more.locator('.ctl-static').allTextContents()).some((t) => t.trim() === 'TSRUOM'));

  // The page below is covered: a click on it lands on the dialog's backdrop.
  const bb = await button(MENU, 'Lab Remark').boundingBox();
  assert.ok(bb);
  const hit = await page.evaluate(
    ([x, y]) => document.elementFromPoint(x, y)?.closest('button')?.textContent ?? null,
    [bb.x + 4, bb.y + 4],
  );
  assert.notEqual(hit, 'Lab Remark');
  assert.equal(await win(MENU).evaluate((el) => el.inert), true);
  await snap('second-page');

  await page.keyboard.press('Escape');
  await more.waitFor({ state: 'detached' });
  assert.equal(await win(MENU).evaluate((el) => el.inert), false);
  await snap('second-page-closed');
});

test('Alt+C opens the characteristic type dialog, Alt+L closes it', async () => {
  await page.keyboard.press('Alt+KeyC');
  const dialog = win(CHAR_TYPE);
  await dialog.waitFor();
  assert.equal(
    (await dialog.locator('.titlebar .title').textContent())?.trim(),
    'RT1B Characteristic Type Selection',
  );
  await button(CHAR_TYPE, 'Non-Taxon Characteristics').waitFor();
  await button(CHAR_TYPE, 'Taxon Characteristics').waitFor();
  await snap('char-type');

  await page.keyboard.press('Alt+KeyL');
  await dialog.waitFor({ state: 'detached' });
  // Only the dialog closed: the menu is still there and active.
  await win(MENU).waitFor();
  assert.equal(await win(MENU).evaluate((el) => el.classList.contains('active')), true);
  await snap('char-type-closed');
});

test('FIPS Hydrologic Unit reports its missing module in a message box', async () => {
  await button(MENU, 'FIPS Hydrologic Unit').click();
  const box = page.getByRole('alertdialog');
  await box.waitFor();
  const text = (await box.locator('.msgbox-text').textContent())?.trim();
  assert.equal(text, 'Procedure RT36_FIPS_HUC_MAINT_LIST of module LKBASE is not available.');
  // The box holds the page: the menu takes no input until OK.
  assert.equal(await page.locator('#desktop').evaluate((el) => el.inert), true);
  await snap('fips-message');

  await box.getByRole('button', { name: 'OK' }).click();
  await box.waitFor({ state: 'detached' });
  await win(MENU).waitFor();
  assert.equal(await page.locator('#desktop').evaluate((el) => el.inert), false);
  await snap('fips-dismissed');
});

test('Help opens the menu help in a new window and keeps the menu', async () => {
  const [help] = await Promise.all([
    context.waitForEvent('page'),
    button(MENU, 'Help').click(),
  ]);
  await help.waitForLoadState('load');
  assert.match(new URL(help.url()).pathname, /^\/help\/RT1_REFERENCE_TABLE_MAINT_MENU/);
  const heading = await help.locator('h1').textContent();
  assert.match(heading ?? '', /Reference Table Maintenance Menu/);
  const body = await help.locator('body').textContent();
  assert.match(body ?? '', /Additional Tables/);
  assert.match(body ?? '', /TSRANLEQ/);
  await shoot(help, 'help', { fullPage: true });

  // A window without a help page of its own gets the page that says so.
  await help.goto(new URL('/help/RT1B_CHAR_TYPE_SELECT', URL_).href);
  assert.match((await help.locator('h1').textContent()) ?? '', /yet to be written/);
  assert.equal((await help.locator('#window-name').textContent())?.trim(), 'RT1B_CHAR_TYPE_SELECT');
  await help.close();

  await page.bringToFront();
  await win(MENU).waitFor();
  assert.equal(await page.getByRole('alertdialog').count(), 0);
});

test('Close ends the session', async () => {
  await page.keyboard.press('Alt+KeyL');
  const box = page.getByRole('alertdialog');
  await box.getByText('The session has ended.').waitFor();
  assert.equal(await win(MENU).count(), 0);
  await snap('ended');

  // The host agrees: the session's screen says it has ended.
  const screen = await page.evaluate(async () => {
    const token = sessionStorage.getItem('watrix.session');
    const res = await fetch('/api/screen', { headers: { Authorization: `Bearer ${token}` } });
    return res.json();
  });
  assert.equal(screen.ended, true);

  await box.getByRole('button', { name: 'Start again' }).click();
  await page.locator('#login-form').waitFor();
  await snap('start-again');
});
