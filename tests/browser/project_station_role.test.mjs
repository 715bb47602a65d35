// The project station role in a real browser, driven as a person would: sign
// in under an organisation of its own, open the list from the menu, add roles
// through the data entry window until the list runs past a page, page with
// Next and Prev by mouse and by keyboard, change a role and delete one with
// its confirmation, and close the list again.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT40_PROJECT_ROLE_MAIN_LIST';
const DIALOG = 'RT40A_DELETE_PROJECT_ROLE';
const ENTRY = 'RT41_PROJECT_ROLE_DATA_ENTRY';

/** The roles this file makes: more than one page of 100 rows. */
const ROLES = 103;
/** @param {number} n */
const role = (n) => `Station role ${String(n).padStart(3, '0')}`;

/** @type {import('playwright-core').BrowserContext} */
let context;
/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('project-station-role');

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

const list = () => win(LIST).locator('[role="listbox"]');
const rows = () => list().locator('.list-row');

/** The type names on show, in list order. */
async function shownRoles() {
  return (await rows().allTextContents()).map((t) => t.trim());
}

/** The number of the selected row, or null, read in one step. */
async function selectedRow() {
  return list().evaluate((el) => {
    const row = el.querySelector('.list-row.selected');
    return row ? Number(row.getAttribute('data-row')) : null;
  });
}

/**
 * Sends one event to the host with the page's session, as the page itself
 * does, and answers the screen.
 * @param {object} event
 */
async function send(event) {
  return page.evaluate(async (ev) => {
    const token = sessionStorage.getItem('watrix.session');
    const res = await fetch('/api/events', {
      method: 'POST',
      headers: { Authorization: `Bearer ${token}`, 'Content-Type': 'application/json' },
      body: JSON.stringify(ev),
    });
    if (!res.ok) throw new Error(`${res.status}: ${await res.text()}`);
    return res.json();
  }, event);
}

before(async () => {
  ({ context, page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the empty list from the menu', async () => {
  await h.signIn(page, 'PSRTEST', 'PSRORG');

  await button(MENU, 'Project Station Role').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT40 Project Role Maintenance List',
  );
  assert.equal((await list().locator('.list-head').textContent())?.trim(), 'Role');
  assert.equal(await rows().count(), 0);
  // Nothing to page and nothing selected: only Add, Close and Help.
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  assert.equal(await button(LIST, 'Add').isEnabled(), true);
  assert.equal(await button(LIST, 'Change').isDisabled(), true);
  assert.equal(await button(LIST, 'Delete').isDisabled(), true);
  await snap('empty-list');
});

test('adds a role through the data entry window, by mouse and by keyboard', async () => {
  await button(LIST, 'Add').click();
  const entry = win(ENTRY);
  await entry.waitFor();
  assert.equal(
    (await entry.locator('.titlebar .title').textContent())?.trim(),
    'RT41 Project Role Data Entry',
  );
  await snap('add-window');

  // Accept with the field blank: the field is marked and the message says why.
  await button(ENTRY, 'Accept').click();
  const box = page.getByRole('alertdialog');
  await box.waitFor();
  assert.equal((await box.locator('.msgbox-text').textContent())?.trim(), 'An entry must be made in this field.');
  await snap('field-required');
  await box.getByRole('button', { name: 'OK' }).click();
  await box.waitFor({ state: 'detached' });
  const name = entry.getByRole('textbox', { name: 'Type Name' });
  assert.equal(await name.evaluate((el) => el.classList.contains('error')), true);

  // Typed in and Enter, which presses Accept.
  await name.fill(role(1));
  await page.keyboard.press('Enter');
  await entry.waitFor({ state: 'detached' });
  await win(LIST).waitFor();
  assert.deepEqual(await shownRoles(), [role(1)]);
  assert.equal(await selectedRow(), 1);
  await snap('first-role-added');

  // The second: Alt+A on the list, Alt+T for Accept.
  // The click goes to the host first; the row lets go when its answer is drawn.
  await list().locator('.list-row').first().click();
  await list().locator('.list-row.selected').waitFor({ state: 'detached' });
  assert.equal(await selectedRow(), null);
  await page.keyboard.press('Alt+KeyA');
  await entry.waitFor();
  await name.fill(role(2));
  await page.keyboard.press('Alt+KeyT');
  await entry.waitFor({ state: 'detached' });
  assert.deepEqual(await shownRoles(), [role(1), role(2)]);
});

test('the rest of the roles come through the same events in a loop', async () => {
  let screen = await page.evaluate(async () => {
    const token = sessionStorage.getItem('watrix.session');
    const res = await fetch('/api/screen', { headers: { Authorization: `Bearer ${token}` } });
    return res.json();
  });
  for (let n = 3; n <= ROLES; n++) {
    // Add waits for the list to have no selected row: let go of the one the
    // last Add left selected.
    const current = (screen?.windows ?? []).at(-1);
    const lb = current?.controls.find((c) => c.type === 'list');
    const selected = lb?.rows.find((r) => r.selected);
    if (selected) await send({ window: LIST, control: lb.id, event: 'Click', row: selected.row });
    screen = await send({ window: LIST, control: '&Add', event: 'Click' });
    assert.equal(screen.windows.at(-1).name, ENTRY);
    screen = await send({
      window: ENTRY,
      control: 'Accep&t',
      event: 'Click',
      values: { TYPE_NAME: role(n) },
    });
    assert.equal(screen.failure, null);
    assert.equal(screen.windows.at(-1).name, LIST, `role ${n} was added`);
  }
  // The page draws the screen the host has now.
  await page.reload();
  await win(LIST).waitFor();
  await rows().first().waitFor();
  const shown = await shownRoles();
  assert.equal(shown.length, 100);
  assert.equal(shown[0], role(1));
  assert.equal(shown[99], role(100));
  await snap('first-page');
});

test('Next and Prev page by mouse, the pages overlapping by one row', async () => {
  // The last role added stands on the next page: nothing is selected here.
  assert.equal(await selectedRow(), null);
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);

  await button(LIST, 'Next').click();
  await page.waitForFunction((first) => {
    const row = document.querySelector('section.window[data-window="RT40_PROJECT_ROLE_MAIN_LIST"] .list-row');
    return row?.textContent?.trim() === first;
  }, role(100));
  assert.deepEqual(
    await shownRoles(),
    Array.from({ length: ROLES - 99 }, (_, i) => role(100 + i)),
  );
  assert.equal(await button(LIST, 'Prev').isEnabled(), true);
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  await snap('second-page');

  await button(LIST, 'Prev').click();
  await page.waitForFunction(
    () => document.querySelectorAll('section.window[data-window="RT40_PROJECT_ROLE_MAIN_LIST"] .list-row').length === 100,
  );
  const shown = await shownRoles();
  assert.equal(shown[0], role(1));
  assert.equal(shown[99], role(100));
  // Up from the first page there is nothing; Next stays as the page up left it.
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
  await snap('back-to-first-page');
});

test('Next and Prev page by keyboard', async () => {
  // Tab from the list reaches the picture button Next (Prev is disabled);
  // Enter presses it.
  await list().focus();
  await page.keyboard.press('Tab');
  const focused = await page.evaluate(() => document.activeElement?.outerHTML ?? '');
  assert.equal(await button(LIST, 'Next').evaluate((el) => el === document.activeElement), true, focused);
  await page.keyboard.press('Enter');
  await page.waitForFunction((first) => {
    const row = document.querySelector('section.window[data-window="RT40_PROJECT_ROLE_MAIN_LIST"] .list-row');
    return row?.textContent?.trim() === first;
  }, role(100));
  assert.equal((await shownRoles()).length, ROLES - 99);
  await snap('second-page-by-keyboard');

  await button(LIST, 'Prev').focus();
  await page.keyboard.press('Space');
  await page.waitForFunction(
    () => document.querySelectorAll('section.window[data-window="RT40_PROJECT_ROLE_MAIN_LIST"] .list-row').length === 100,
  );
  assert.equal((await shownRoles())[0], role(1));
});

test('changes a role: a double click opens it, the new name comes back selected', async () => {
  await list().locator('.list-row[data-row="3"]').dblclick();
  const entry = win(ENTRY);
  await entry.waitFor();
  const name = entry.getByRole('textbox', { name: 'Type Name' });
  assert.equal(await name.inputValue(), role(3));
  const stamp = entry.getByRole('textbox', { name: 'Date of Last Update' });
  assert.match(await stamp.inputValue(), /^\d{4}-\d\d-\d\d-\d\d\.\d\d\.\d\d\.000000$/);
  assert.equal(await entry.getByRole('textbox', { name: 'Updated By' }).inputValue(), 'PSRTEST');
  await name.fill(`${role(3)} renamed`);
  await snap('change-window');
  await button(ENTRY, 'Accept').click();
  await entry.waitFor({ state: 'detached' });
  const shown = await shownRoles();
  assert.equal(shown[2], `${role(3)} renamed`);
  assert.equal(await selectedRow(), 3);
  assert.equal(await button(LIST, 'Prev').isDisabled(), true);
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  await snap('changed');
});

test('deletes a role after its confirmation', async () => {
  // Row 3 is selected: Alt+D asks first.
  await page.keyboard.press('Alt+KeyD');
  const dialog = win(DIALOG);
  await dialog.waitFor();
  assert.equal(
    (await dialog.locator('.titlebar .title').textContent())?.trim(),
    'RT40A Delete Project Role',
  );
  assert.equal(
    await dialog.getByRole('textbox', { name: 'Type Name' }).inputValue(),
    `${role(3)} renamed`,
  );
  assert.equal(await win(LIST).evaluate((el) => el.inert), true);
  await snap('delete-confirmation');

  await button(DIALOG, 'Delete').click();
  await dialog.waitFor({ state: 'detached' });
  const shown = await shownRoles();
  assert.equal(shown.length, 99);
  assert.equal(shown[2], role(4));
  assert.equal(shown.includes(`${role(3)} renamed`), false);
  assert.equal(await selectedRow(), null);
  // Paging waits for a click on a row and its release.
  assert.equal(await button(LIST, 'Next').isDisabled(), true);
  await snap('deleted');

  await list().locator('.list-row[data-row="1"]').click();
  await page.waitForFunction(() => !!document.querySelector('section.window .list-row.selected'));
  await list().locator('.list-row[data-row="1"]').click();
  await page.waitForFunction(() => !document.querySelector('section.window .list-row.selected'));
  assert.equal(await button(LIST, 'Next').isEnabled(), true);
});

test('Close goes back to the menu', async () => {
  await page.keyboard.press('Alt+KeyL');
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
  assert.equal(await win(MENU).evaluate((el) => el.classList.contains('active')), true);
  await snap('back-at-menu');
  // Out of the page's way for the files that come after this one.
  await page.keyboard.press('Alt+KeyL');
  await page.getByRole('alertdialog').getByText('The session has ended.').waitFor();
});
