// The rows of a list as the page draws them, screen after screen: a list that
// grows, shrinks, changes texts and highlights must show exactly the host's
// rows, in chunks of at most 50 whose heights are those of their rows, and
// each row where a plain stack of 15-pixel rows would put it. Drives the
// page's own render.js in a desktop of its own, with screens made up here.
//
// WATRIX_URL: the address of a running `watrix serve` (required); only its
// page and scripts are used, no session.

import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import * as h from './harness.mjs';

/** @type {import('playwright-core').Page} */
let page;

before(async () => {
  ({ page } = await h.openBrowser());
  assert.ok(h.env.url);
  await page.goto(h.env.url);
});

after(h.closeBrowser);

test('a list shows the host rows after every change, in chunks that fit them', async () => {
  const problems = await page.evaluate(async () => {
    const { renderWindows } = await import('/render.js');
    const desktop = document.createElement('main');
    desktop.className = 'desktop';
    document.body.append(desktop);
    // A fixed sequence of made-up screens (a small linear congruential generator).
    let seed = 11;
    const rnd = (/** @type {number} */ n) => {
      seed = (seed * 1103515245 + 12345) % 2147483648;
      return seed % n;
    };
    /** @param {number} n @param {number} from */
    const made = (n, from = 1) =>
      Array.from({ length: n }, (_, i) => ({
        row: from + i,
        cells: [`A${rnd(50)}`, rnd(10) === 0 ? 'two\r\nlines <&> "quoted"' : `B ${rnd(1000)}`],
        selected: rnd(30) === 0,
      }));
    /** @type {string[]} */
    const found = [];
    let rows = made(120);
    for (let step = 0; step < 80; step++) {
      const change = rnd(6);
      if (change === 0) rows = made(rnd(300));
      else if (change === 1) rows = rows.slice(0, rnd(rows.length + 1));
      else if (change === 2) rows = [...rows, ...made(rnd(120), rows.length + 1)];
      else if (change === 3) rows = rows.map((r) => (rnd(10) ? r : { ...r, cells: [r.cells[0], `changed ${rnd(9)}`] }));
      else if (change === 4) rows = rows.map((r) => ({ ...r, selected: rnd(40) === 0 }));
      else rows = rows.filter(() => rnd(20) !== 0).map((r, i) => ({ ...r, row: i + 1 }));
      const list = {
        id: 5, name: 'ListBox1', type: 'list', label: null, attribute: null, keyword: null,
        x: 11, y: 9, w: 250, h: 150, enabled: true, value: null, display: null,
        focus: false, error: false, protected: false,
        columns: [
          { heading: 'A', attribute: null, right: 60, align: 'L' },
          { heading: 'B', attribute: null, right: 250, align: 'R' },
        ],
        rows,
      };
      const win = { name: 'W', title: 'W', procedure: 'P', kind: 'DP', width: 300, height: 200, controls: [list] };
      renderWindows(desktop, [win], { isDirty: () => false })();
      // Sometimes the next screen comes before the page was idle, sometimes after.
      await new Promise((r) => requestAnimationFrame(() => setTimeout(r, rnd(3) ? 0 : 30)));

      const body = /** @type {HTMLElement} */ (desktop.querySelector('.list-body'));
      const shown = [...body.querySelectorAll('.list-row')];
      if (shown.length !== rows.length) found.push(`step ${step}: ${shown.length} rows for ${rows.length}`);
      const top = body.getBoundingClientRect().top - body.scrollTop;
      const left = body.getBoundingClientRect().left;
      shown.forEach((el, i) => {
        const r = rows[i];
        if (!r) return;
        const cells = [...el.querySelectorAll('.list-cell')].map((c) => c.textContent);
        if (JSON.stringify(cells) !== JSON.stringify(r.cells)) found.push(`step ${step}, row ${i}: ${JSON.stringify(cells)}`);
        if (/** @type {HTMLElement} */ (el).dataset.row !== String(r.row) || el.id !== `c-W-5-r${r.row}`) {
          found.push(`step ${step}, row ${i}: id ${el.id}`);
        }
        if (el.classList.contains('selected') !== r.selected || el.getAttribute('aria-selected') !== String(r.selected)) {
          found.push(`step ${step}, row ${i}: highlight`);
        }
        if (i % 37 === 0) {
          const box = el.getBoundingClientRect();
          if (Math.abs(box.top - (top + 15 * i)) > 0.01 || Math.abs(box.left - left) > 0.01) {
            found.push(`step ${step}, row ${i}: at ${box.left},${box.top}`);
          }
        }
      });
      const chunks = [...body.children];
      chunks.forEach((c, i) => {
        const n = c.childElementCount;
        if (!c.classList.contains('list-chunk') || n === 0 || n > 50 || (i < chunks.length - 1 && n !== 50)) {
          found.push(`step ${step}: chunk ${i} holds ${n}`);
        }
        const height = /** @type {HTMLElement} */ (c).style.getPropertyValue('contain-intrinsic-height');
        if (height !== `${n * 15}px`) found.push(`step ${step}: chunk ${i} of ${n} rows is ${height} high`);
      });
      if (body.scrollHeight !== Math.max(rows.length * 15, body.clientHeight)) {
        found.push(`step ${step}: scroll height ${body.scrollHeight} for ${rows.length} rows`);
      }
    }
    desktop.remove();
    return found;
  });
  assert.deepEqual(problems.slice(0, 10), []);
});
