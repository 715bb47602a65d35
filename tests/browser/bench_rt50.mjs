// Browser benchmark of the lab remark list: the time from the click on the
// menu's "Lab &Remark" to the list of 2000 rows painted, beside the time the
// same browser page takes to paint a static HTML table of the same 2000 rows.
// Both are measured with performance.now() inside the page, in the same run,
// taking turns, and both end the same way: the rows exist, then a
// requestAnimationFrame and a zero timeout, so the frame that shows them has
// been painted. It ends with the line `goal browser-list-paint: RATIOx (at
// most 1.5x)`, the ratio of the medians, for scripts/bench.sh.
//
// A plain node script (not a node:test file). Run it through
// bench/browser_rt50.sh, which loads the data and starts the server.
//
// WATRIX_URL      the address of a running `watrix serve` (required); its
//                 database holds exactly 2000 remarks in the list's range,
//                 "R00001".."R02000"
// WATRIX_CHROMIUM the browser (default /usr/bin/chromium)
// BENCH_RUNS      timed runs of each (default 10), after BENCH_WARMUP (2)

import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { chromium } from 'playwright-core';

const URL_ = process.env.WATRIX_URL;
const CHROMIUM = process.env.WATRIX_CHROMIUM || '/usr/bin/chromium';
const RUNS = Number(process.env.BENCH_RUNS || 10);
const WARMUP = Number(process.env.BENCH_WARMUP || 2);
const ROWS = 2000;
/** The most the open may take, as a multiple of the static table. */
const GOAL = 1.5;

const MENU = 'RT1_REFERENCE_TABLE_MAINT_MENU';
const LIST = 'RT50_LAB_REMARK_MAINT_LIST';

if (!URL_) {
  console.error('bench_rt50: WATRIX_URL must name a running server');
  process.exit(2);
}

const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'watrix-chromium-'));
const context = await chromium.launchPersistentContext(profile, {
  executablePath: CHROMIUM,
  headless: true,
  viewport: { width: 1000, height: 700 },
  args: [
    '--headless',
    '--no-sandbox',
    '--disable-gpu',
    '--disable-quic',
    '--no-first-run',
    '--disable-background-networking',
    '--disable-component-update',
    '--disable-sync',
  ],
});

try {
  const page = context.pages()[0] ?? (await context.newPage());
  page.setDefaultTimeout(30_000);
  const win = (/** @type {string} */ name) => page.locator(`section.window[data-window="${name}"]`);
  const button = (/** @type {string} */ window, /** @type {string} */ text) =>
    win(window).getByRole('button', { name: text, exact: true });

  await page.goto(URL_);
  await page.locator('#login-form').waitFor();
  await page.fill('#login-user', 'JSMITH');
  await page.fill('#login-org', 'ZZZZZZZZ');
  await page.getByRole('button', { name: 'Sign in' }).click();
  await win(MENU).waitFor();

  /**
   * Clicks "Lab &Remark" (a real mouse click) and answers the time in the
   * page from the click event to the 2000 rows painted, and the rows shown.
   */
  async function openList() {
    // Arm the watch before the click: t0 at the click event (capture, before
    // the page's own handler), t1 once 2000 rows exist and a frame passed.
    await page.evaluate(
      ({ list, rows }) => {
        const w = /** @type {any} */ (window);
        w.__bench = new Promise((resolve) => {
          let t0 = 0;
          window.addEventListener('click', () => (t0 = performance.now()), { capture: true, once: true });
          const sel = `section.window[data-window="${list}"] [data-name="ListBox1"] .list-row`;
          const done = () => {
            requestAnimationFrame(() =>
              setTimeout(() => {
                const t1 = performance.now();
                const shown = [...document.querySelectorAll(sel)].map((r) =>
                  [...r.querySelectorAll('.list-cell')].map((c) => c.textContent ?? ''),
                );
                resolve({ ms: t1 - t0, shown });
              }, 0),
            );
          };
          const obs = new MutationObserver(() => {
            if (document.querySelectorAll(sel).length >= rows) {
              obs.disconnect();
              done();
            }
          });
          obs.observe(document.body, { childList: true, subtree: true });
        });
      },
      { list: LIST, rows: ROWS },
    );
    await button(MENU, 'Lab Remark').click();
    const r = await page.evaluate(() => /** @type {any} */ (window).__bench);
    await win(LIST).waitFor();
    return /** @type {{ms: number, shown: string[][]}} */ (r);
  }

  async function closeList() {
    await button(LIST, 'Close').click();
    await win(LIST).waitFor({ state: 'detached' });
    await win(MENU).waitFor();
  }

  /** A static table of the given rows, by innerHTML, painted; answers ms. */
  async function staticTable(/** @type {string[][]} */ rows) {
    return page.evaluate(
      (rows) =>
        new Promise((resolve) => {
          const esc = (/** @type {string} */ s) =>
            s.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;');
          const t0 = performance.now();
          const holder = document.createElement('div');
          holder.style.cssText = 'position:fixed;left:0;top:0;width:600px;height:400px;overflow:auto;background:#fff;z-index:9999';
          holder.innerHTML =
            '<table><thead><tr><th>Short Name</th><th>Description</th></tr></thead><tbody>' +
            rows.map((r) => `<tr><td>${esc(r[0])}</td><td>${esc(r[1])}</td></tr>`).join('') +
            '</tbody></table>';
          document.body.append(holder);
          requestAnimationFrame(() =>
            setTimeout(() => {
              const t1 = performance.now();
              const n = holder.querySelectorAll('tbody tr').length;
              holder.remove();
              resolve({ ms: t1 - t0, n });
            }, 0),
          );
        }),
      rows,
    );
  }

  /** @param {string[][]} shown */
  function check(shown) {
    assert.equal(shown.length, ROWS, `the list shows ${ROWS} rows`);
    assert.equal(shown[0][0], 'R00001', 'first row');
    assert.equal(shown[ROWS - 1][0], 'R02000', 'last row');
  }

  /** Lets the page finish what the last step left to do (a frame, a pause). */
  const settle = () =>
    page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 50))));

  // Opens and tables take turns, so that both meet the same load of a
  // shared machine; the static table shows the texts the open before it showed.
  const open = [];
  const table = [];
  for (let i = 0; i < WARMUP + RUNS; i++) {
    await settle();
    const r = await openList();
    check(r.shown);
    await closeList();
    await settle();
    const t = /** @type {{ms: number, n: number}} */ (await staticTable(r.shown));
    assert.equal(t.n, ROWS, `the static table holds ${ROWS} rows`);
    if (i >= WARMUP) {
      open.push(r.ms);
      table.push(t.ms);
    }
  }

  const median = (/** @type {number[]} */ a) => {
    const s = [...a].sort((x, y) => x - y);
    const m = s.length >> 1;
    return s.length % 2 ? s[m] : (s[m - 1] + s[m]) / 2;
  };
  const f = (/** @type {number} */ x) => x.toFixed(1);
  const om = median(open);
  const tm = median(table);
  console.log(`runs: ${RUNS} of each after ${WARMUP} warm-up; ${ROWS} rows, first R00001, last R02000`);
  console.log(`RT50 open, click to painted: ${f(om)} ms median, ${f(Math.min(...open))} ms min`);
  console.log(`static table of the same ${ROWS} rows: ${f(tm)} ms median, ${f(Math.min(...table))} ms min`);
  console.log(`ratio (median): ${(om / tm).toFixed(2)}x`);
  console.log(`goal browser-list-paint: ${(om / tm).toFixed(2)}x (at most ${GOAL}x)`);
} finally {
  await context.close();
  fs.rmSync(profile, { recursive: true, force: true });
}
