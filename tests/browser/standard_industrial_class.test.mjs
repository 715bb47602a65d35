// The standard industrial class windows in a real browser, driven as a
// person would: open the list from the menu over the demo classes; add a
// class, meet the required-field mark; change its name; delete it through
// RT32A, which the Delete button opens by its control row; and meet RT32A's
// refusal of a class that a facility assignment uses.
//
// WATRIX_URL: the address of a running `watrix serve` over the demo data
// (data/TSMSIC.csv: SIC divisions and major groups, ORG ID "ZZZZZZZZ").
// WATRIX_DB, WATRIX_BIN: the database and the watrix program, with which the
// setup loads a station and its facility assignment to class "07".
// WATRIX_SHOTS: folder for the screenshots, one per step (default ./screenshots).
// The browser, screenshots and sign-in come from ./harness.mjs.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, writeFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import * as h from './harness.mjs';

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT32_STND_INDSTRL_CD_MAINT_LIST';
const DELETE = 'RT32A_SIC_DELETE_CONFIRMATION';
const ENTRY = 'RT33_STND_INDST_SIC_DATA_ENTRY';
const ORG = 'ZZZZZZZZ';

/** @type {import('playwright-core').Page} */
let page;
const shoot = h.shooter('standard-industrial-class');
const snap = (/** @type {string} */ name) => shoot(page, name);
const win = (/** @type {string} */ name) => h.win(page, name);
const button = (/** @type {string} */ window, /** @type {string} */ text) =>
  h.button(page, window, text);
const field = (/** @type {string} */ window, /** @type {string} */ name) =>
  win(window).locator(`[data-name="${name}"]`);
const list = () => win(LIST).locator('[data-name="ListBox1"]');
const rowOf = (/** @type {string} */ code) =>
  list().locator('.list-row', {
    has: page.locator('.list-cell', { hasText: new RegExp(`^${code}$`) }),
  });

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

/** Waits for the message box, checks its text, and presses OK. */
async function acknowledge(/** @type {string} */ text, /** @type {string} */ shotName) {
  const box = page.getByRole('alertdialog');
  await box.waitFor();
  assert.equal((await box.locator('.msgbox-text').textContent())?.trim(), text);
  await snap(shotName);
  await box.getByRole('button', { name: 'OK' }).click();
  await box.waitFor({ state: 'detached' });
}

/** Appends `csv` to `table` with `watrix db load`. */
function load(/** @type {string} */ table, /** @type {string} */ csv) {
  const db = process.env.WATRIX_DB;
  const bin = process.env.WATRIX_BIN;
  assert.ok(db && bin, 'WATRIX_DB and WATRIX_BIN are needed (tests/browser/run.sh sets them)');
  const dir = mkdtempSync(join(tmpdir(), 'watrix-sic-'));
  try {
    const file = join(dir, `${table}.csv`);
    writeFileSync(file, csv);
    execFileSync(bin, ['db', 'load', '--db', db, table, file], { stdio: 'pipe' });
  } finally {
    rmSync(dir, { recursive: true, force: true });
  }
}

before(async () => {
  // A facility station assigned to class "07", Agricultural Services.
  load(
    'TSMVSTC',
    'TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID,PRIMARY_TYPE_CD,SECONDARY_TYPE_CD,NATURAL_IND_CD,' +
      `D_USERID_CODE,D_LAST_UPDT_TS\n907001,${ORG},Facility,,N,LOADER,2023-05-01 10:00:00\n`,
  );
  load(
    'TSMSTATN',
    `TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID\n907001,${ORG},907001,${ORG}\n`,
  );
  load(
    'TSMFSA',
    'D_USERID_CODE,D_LAST_UPDATE_TS,TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMSIC_CODE,TSMSIC_ORG_ID\n' +
      `LOADER,2023-05-01 10:00:00,907001,${ORG},07,${ORG}\n`,
  );
  ({ page } = await h.openBrowser());
});

after(h.closeBrowser);

test('signs in and opens the list of the demo classes, by code', async () => {
  await h.signIn(page, 'JSMITH', ORG);
  await button(MENU, 'Standard Industrial Class').click();
  await win(LIST).waitFor();
  assert.equal(
    (await win(LIST).locator('.titlebar .title').textContent())?.trim(),
    'RT32 Standard Industrial Class Maintenance List',
  );
  const heads = await list().locator('.list-head .list-cell').allTextContents();
  assert.deepEqual(heads.map((x) => x.trim()), ['Code', 'Name']);
  const shown = await rows();
  assert.equal(shown.length, 94);
  assert.deepEqual(shown.slice(0, 3).map((r) => r.code), ['01', '02', '07']);
  const codes = shown.map((r) => r.code);
  assert.deepEqual(codes, [...codes].sort());
  assert.equal(await button(LIST, 'Prev').isEnabled(), false);
  assert.equal(await button(LIST, 'Next').isEnabled(), false);
  assert.equal(await button(LIST, 'Delete').isEnabled(), false);
  await snap('list');
});

test('an add with a blank name is refused, then the class is added and marked', async () => {
  await button(LIST, 'Add').click();
  await win(ENTRY).waitFor();
  await field(ENTRY, 'TSMSIC_CODE1').fill('0999');
  await button(ENTRY, 'Accept').click();
  await acknowledge('An entry must be made in this field.', 'add-required');
  await field(ENTRY, 'NAME1').fill('Browser Test Class');
  await snap('add-filled');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await list().locator('.list-row.selected', { hasText: 'Browser Test Class' }).waitFor();
  const shown = await rows();
  assert.equal(shown.length, 95);
  assert.deepEqual(shown.filter((r) => r.selected).map((r) => r.code), ['0999']);
  await snap('added');
});

test('a change protects the code and rewrites the name', async () => {
  await button(LIST, 'Change').click();
  await win(ENTRY).waitFor();
  assert.equal(await field(ENTRY, 'TSMSIC_CODE1').inputValue(), '0999');
  assert.equal(
    await field(ENTRY, 'TSMSIC_CODE1').evaluate((el) => el.readOnly || el.disabled),
    true,
  );
  await field(ENTRY, 'NAME1').fill('Browser Test Class, renamed');
  await snap('change');
  await button(ENTRY, 'Accept').click();
  await win(ENTRY).waitFor({ state: 'detached' });
  await list().locator('.list-row.selected', { hasText: 'Browser Test Class, renamed' }).waitFor();
  await snap('changed');
});

test('Delete opens RT32A, and its Delete removes the class', async () => {
  await button(LIST, 'Delete').click();
  await win(DELETE).waitFor();
  assert.equal(
    (await win(DELETE).locator('.titlebar .title').textContent())?.trim(),
    'RT32A Delete Standard Industrial Class',
  );
  assert.equal(await field(DELETE, 'TSMSIC_CODE1').inputValue(), '0999');
  await snap('delete-confirm');
  await button(DELETE, 'Delete').click();
  await win(DELETE).waitFor({ state: 'detached' });
  await rowOf('0999').waitFor({ state: 'detached' });
  assert.equal((await rows()).length, 94);
  await snap('deleted');
});

test('RT32A refuses a class that a facility assignment uses, and stays open', async () => {
  await rowOf('07').click();
  await list().locator('.list-row.selected', { hasText: 'Agricultural Services' }).waitFor();
  await button(LIST, 'Delete').click();
  await win(DELETE).waitFor();
  assert.equal(await field(DELETE, 'TSMSIC_CODE1').inputValue(), '07');
  await button(DELETE, 'Delete').click();
  await acknowledge(
    'Can Not Delete Standard Industrial Code - Facility SIC Assgn Exists',
    'delete-refused',
  );
  await win(DELETE).waitFor();
  await button(DELETE, 'Cancel').click();
  await win(DELETE).waitFor({ state: 'detached' });
  await rowOf('07').waitFor();
  assert.equal((await rows()).length, 94);
});

test('Close goes back to the menu', async () => {
  await button(LIST, 'Close').click();
  await win(LIST).waitFor({ state: 'detached' });
  await win(MENU).waitFor();
});
