// The JSON interface of the host, as the page uses it: one session at a time,
// its token kept in memory and in sessionStorage so that a reload of the page
// finds its session again. Nothing here knows about windows or the DOM.

/**
 * @typedef {{value: string, text: string}} Option
 * @typedef {{heading: string, attribute: string|null, right: number, align: string}} Column
 * @typedef {{row: number, cells: string[], selected: boolean}} ListRow
 * @typedef {{
 *   id: number, name: string, type: string, label: string|null,
 *   attribute: string|null, keyword: string|null,
 *   x: number, y: number, w: number, h: number,
 *   enabled: boolean, value: string|null, display: string|null,
 *   focus: boolean, error: boolean, protected: boolean,
 *   default?: boolean, align?: string, multiple?: boolean,
 *   options?: Option[], columns?: Column[], rows?: ListRow[]
 * }} Control
 * @typedef {{
 *   name: string, title: string, procedure: string, kind: string,
 *   width: number, height: number, controls: Control[]
 * }} Win
 * @typedef {{kind: string, text: string}} Message
 * @typedef {{
 *   unit_name: string, unit_number: string, statement: string,
 *   status: string, status_detail: string, database: string
 * }} Failure
 * @typedef {{
 *   windows: Win[], message: Message|null, failure: Failure|null,
 *   ended: boolean, help?: string|null
 * }} Screen
 * @typedef {{
 *   window: string, control: number|string, event: string,
 *   values?: Object<string, string>, row?: number, rows?: number[], key?: string
 * }} UiEvent
 */

const TOKEN_KEY = 'watrix.session';

/** A refusal of the host: its HTTP status and the reason it gave. */
export class ApiError extends Error {
  /**
   * @param {number} status
   * @param {string} text
   */
  constructor(status, text) {
    super(text);
    this.name = 'ApiError';
    this.status = status;
  }
}

/**
 * Reads the reason out of a refusal. The host answers {"error": "..."}; a
 * proxy or an older host may answer plain text, which is shown as it is.
 * @param {Response} res
 * @returns {Promise<string>}
 */
async function reasonOf(res) {
  const body = await res.text();
  try {
    const json = JSON.parse(body);
    if (json && typeof json.error === 'string') return json.error;
    if (json && typeof json.message === 'string') return json.message;
  } catch {
    // not JSON: fall through to the text itself
  }
  return body.trim() || `${res.status} ${res.statusText}`;
}

export class Api {
  /** @param {string} [base] prefix of the interface's paths, '' for the same origin */
  constructor(base = '') {
    this.base = base;
    /** @type {string|null} */
    this.token = null;
    try {
      this.token = sessionStorage.getItem(TOKEN_KEY);
    } catch {
      this.token = null;
    }
  }

  /** @param {string|null} token */
  setToken(token) {
    this.token = token;
    try {
      if (token) sessionStorage.setItem(TOKEN_KEY, token);
      else sessionStorage.removeItem(TOKEN_KEY);
    } catch {
      // storage may be off; the token in memory is enough
    }
  }

  /**
   * @param {string} method
   * @param {string} path
   * @param {unknown} [body]
   * @returns {Promise<any>} the parsed answer, or null for 204
   */
  async request(method, path, body) {
    /** @type {Record<string, string>} */
    const headers = { Accept: 'application/json' };
    if (body !== undefined) headers['Content-Type'] = 'application/json';
    if (this.token && path !== '/api/sessions') headers.Authorization = `Bearer ${this.token}`;
    let res;
    try {
      res = await fetch(this.base + path, {
        method,
        headers,
        body: body === undefined ? undefined : JSON.stringify(body),
        cache: 'no-store',
      });
    } catch (e) {
      throw new ApiError(0, `The server cannot be reached (${e instanceof Error ? e.message : e}).`);
    }
    if (!res.ok) throw new ApiError(res.status, await reasonOf(res));
    if (res.status === 204) return null;
    return res.json();
  }

  /**
   * Opens a session. The password goes only when one was given: a host that
   * signs in without database credentials has no use for it.
   * @param {{user: string, org: string, password?: string}} who
   * @returns {Promise<Screen>}
   */
  async login(who) {
    /** @type {Record<string, string>} */
    const body = { user: who.user, org: who.org };
    if (who.password) body.password = who.password;
    const answer = await this.request('POST', '/api/sessions', body);
    this.setToken(answer.session);
    return answer.screen;
  }

  /** @returns {Promise<Screen>} */
  screen() {
    return this.request('GET', '/api/screen');
  }

  /**
   * @param {UiEvent} event
   * @returns {Promise<Screen>}
   */
  send(event) {
    return this.request('POST', '/api/events', event);
  }

  /** Ends the session on the host and forgets its token, whatever the answer. */
  async end() {
    if (!this.token) return;
    try {
      await this.request('DELETE', '/api/session');
    } catch {
      // an ended or unknown session is gone either way
    }
    this.setToken(null);
  }
}
