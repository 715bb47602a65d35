// Shared setup for the browser tests: where the server and the screenshots
// are, a headless Chromium with a throw-away profile, numbered screenshots,
// locators for windows and their buttons, and the sign-in steps.
//
// WATRIX_URL: the address of a running `watrix serve` (required).
// WATRIX_SHOTS: folder for the screenshots (default ./screenshots).
// WATRIX_CHROMIUM: the Chromium to drive (default /usr/bin/chromium).

import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { chromium } from 'playwright-core';

/** @typedef {import('playwright-core').BrowserContext} BrowserContext */
/** @typedef {import('playwright-core').Page} Page */
/** @typedef {import('playwright-core').Locator} Locator */

/** The environment the tests run in. */
export const env = {
  /** @type {string | undefined} */
  url: process.env.WATRIX_URL,
  /** @type {string} */
  shots: process.env.WATRIX_SHOTS || path.resolve('screenshots'),
  /** @type {string} */
  chromium: process.env.WATRIX_CHROMIUM || '/usr/bin/chromium',
};

/** @type {BrowserContext | undefined} */
let openContext;
/** @type {string | undefined} */
let openProfile;

/**
 * Checks the environment, makes the screenshot folder and starts a headless
 * Chromium on a fresh profile folder.
 * @returns {Promise<{context: BrowserContext, page: Page}>}
 */
export async function openBrowser() {
  assert.ok(env.url, 'WATRIX_URL must name a running server');
  fs.mkdirSync(env.shots, { recursive: true });
  openProfile = fs.mkdtempSync(path.join(os.tmpdir(), 'watrix-chromium-'));
  const context = await chromium.launchPersistentContext(openProfile, {
    executablePath: env.chromium,
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
  openContext = context;
  const page = context.pages()[0] ?? (await context.newPage());
  page.setDefaultTimeout(10_000);
  return { context, page };
}

/** Closes the browser opened by openBrowser() and removes its profile folder. */
export async function closeBrowser() {
  await openContext?.close();
  openContext = undefined;
  if (openProfile) fs.rmSync(openProfile, { recursive: true, force: true });
  openProfile = undefined;
}

/**
 * A screenshot taker whose files are named `<prefix>-NN-<name>.png`, NN
 * counting up from 01 across all its shots.
 * @param {string} prefix
 * @returns {(page: Page, name: string, options?: {fullPage?: boolean}) => Promise<string>}
 */
export function shooter(prefix) {
  let shot = 0;
  return async (page, name, options = {}) => {
    shot += 1;
    const file = path.join(env.shots, `${prefix}-${String(shot).padStart(2, '0')}-${name}.png`);
    await page.screenshot({ path: file, ...options });
    return file;
  };
}

/**
 * A window on the page by its design name.
 * @param {Page} page
 * @param {string} name
 * @returns {Locator}
 */
export const win = (page, name) => page.locator(`section.window[data-window="${name}"]`);

/**
 * A button of a window by its text as shown (mnemonic marks removed).
 * @param {Page} page
 * @param {string} window
 * @param {string} text
 * @returns {Locator}
 */
export const button = (page, window, text) =>
  win(page, window).getByRole('button', { name: text, exact: true });

/**
 * Opens the server's page, signs in and waits for the reference table menu.
 * `onForm` runs once the sign-in form shows, before anything is typed.
 * @param {Page} page
 * @param {string} user
 * @param {string} org
 * @param {{onForm?: () => Promise<unknown>}} [options]
 */
export async function signIn(page, user, org, options = {}) {
  assert.ok(env.url, 'WATRIX_URL must name a running server');
  await page.goto(env.url);
  await page.locator('#login-form').waitFor();
  if (options.onForm) await options.onForm();
  await page.fill('#login-user', user);
  await page.fill('#login-org', org);
  await page.getByRole('button', { name: 'Sign in' }).click();
  await win(page, 'RT1_REFERENCE_TABLE_MAINT_MENU').waitFor();
}
