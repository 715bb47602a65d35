// Writes the CSV files of the demo database (data/TABLE.csv) from public
// reference data held by the npm packages pinned in package.json. Run by hand
// (`npm ci && node build.mjs` in this folder); the output depends on nothing
// but those packages, so two runs write the same bytes. data/README.md tells
// where each table comes from.
import { existsSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import * as topojson from 'topojson-client';

const here = dirname(fileURLToPath(import.meta.url));
const dataDir = join(here, '..');
const modules = join(here, 'node_modules');

// Every row belongs to the pseudo organisation of the national rows and
// carries the same audit pair.
const ORG = 'ZZZZZZZZ';
const USER = 'DEMO';
const STAMP = '2025-01-01 00:00:00';

// ---------------------------------------------------------------------------
// Sources

const pinned = JSON.parse(readFileSync(join(here, 'package.json'), 'utf8')).dependencies;

function readJson(pkg, file) {
  return JSON.parse(readFileSync(join(modules, pkg, file), 'utf8'));
}

// Refuses to build from anything but the pinned versions.
for (const [pkg, version] of Object.entries(pinned)) {
  const installed = readJson(pkg, 'package.json').version;
  if (installed !== version) {
    throw new Error(`${pkg} ${installed} is installed, package.json pins ${version}: run npm ci`);
  }
}

// ---------------------------------------------------------------------------
// Text rules: only characters of code page 1252, names cut to their column's
// width in characters.

const CP1252_HIGH = '€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ';

function isCp1252(ch) {
  const c = ch.codePointAt(0);
  return (c >= 0x20 && c <= 0x7e) || (c >= 0xa0 && c <= 0xff) || CP1252_HIGH.includes(ch);
}

function checkText(text, where) {
  for (const ch of text) {
    if (!isCp1252(ch)) {
      throw new Error(`${where}: character U+${ch.codePointAt(0).toString(16)} is outside code page 1252 in ${JSON.stringify(text)}`);
    }
  }
}

// The few characters of the sources that code page 1252 lacks, spelt with
// characters that it has.
const SPELLED = new Map([
  ['\u03a9', 'ohm'], ['\u2126', 'ohm'], ['\u03bc', '\u00b5'], ['\u2212', '-'], ['\u2010', '-'],
  ['\u2011', '-'], ['\u2264', '<='], ['\u2265', '>='], ['\u2248', '~'], ['\u00a0', ' '],
]);

function spell(text) {
  return Array.from(text, (ch) => SPELLED.get(ch) ?? ch).join('');
}

// Collapses runs of white space and cuts to `width` characters; a cut that
// ends in a blank or a separator drops it.
function cut(text, width) {
  const chars = Array.from(spell(text).replace(/\s+/g, ' ').trim());
  if (chars.length <= width) return chars.join('');
  return chars.slice(0, width).join('').replace(/[\s,;]+$/, '');
}

// Cuts a description to `width` characters at the end of a word where one
// ends in its second half, dropping an unclosed parenthesis or a separator
// left at the end.
function cutWords(text, width) {
  const chars = Array.from(spell(text).replace(/\s+/g, ' ').trim());
  if (chars.length <= width) return chars.join('');
  let end = width;
  if (chars[width] !== ' ') {
    const space = chars.lastIndexOf(' ', width - 1);
    if (space >= width / 2) end = space;
  }
  let out = chars.slice(0, end).join('');
  out = out.replace(/\s*\([^)]*$/, '');
  return out.replace(/[\s,;:\-\u2013(]+$/, '');
}

// ---------------------------------------------------------------------------
// CSV: header of column names, RFC 4180 quoting, UTF-8, one row per line.
// An empty cell is NULL where the column allows it.

function csvCell(value) {
  if (value === null || value === undefined) return '';
  const text = String(value);
  if (/[",\r\n]/.test(text) || /^\s|\s$/.test(text)) return `"${text.replace(/"/g, '""')}"`;
  return text;
}

// A column: [name, kind, width, nullable]. Kinds: char, varchar (width in
// characters), is (number(12)), seq (number(3), 1 to 999), deg (number(14,4)),
// date.
function writeTable(table, columns, rows) {
  const lines = [columns.map(([name]) => name).join(',')];
  rows.forEach((row, index) => {
    const cells = columns.map(([name, kind, width, nullable]) => {
      const value = row[name];
      const where = `${table} row ${index + 1} ${name}`;
      if (value === null || value === undefined) {
        if (!nullable) throw new Error(`${where}: no value for a column that is not nullable`);
        return '';
      }
      switch (kind) {
        case 'char':
        case 'varchar': {
          const text = String(value);
          checkText(text, where);
          if (Array.from(text).length > width) throw new Error(`${where}: ${JSON.stringify(text)} is longer than ${width}`);
          if (!nullable && text.trim() === '' && kind === 'varchar') throw new Error(`${where}: empty text`);
          return csvCell(text);
        }
        case 'is':
          if (!Number.isInteger(value) || value < 1) throw new Error(`${where}: bad IS number ${value}`);
          return String(value);
        case 'seq':
          if (!Number.isInteger(value) || value < 1 || value > 999) throw new Error(`${where}: bad sequence number ${value}`);
          return String(value);
        case 'deg':
          if (typeof value !== 'string' || !/^-?\d{1,3}\.\d{4}$/.test(value)) throw new Error(`${where}: bad degrees ${value}`);
          return value;
        case 'date':
          if (!/^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d$/.test(value)) throw new Error(`${where}: bad date ${value}`);
          return value;
        default:
          throw new Error(`${where}: unknown kind ${kind}`);
      }
    });
    lines.push(cells.join(','));
  });
  writeFileSync(join(dataDir, `${table}.csv`), lines.join('\n') + '\n', 'utf8');
  return rows.length;
}

// Checks that the rows are unique on a business key.
function checkUnique(table, rows, key) {
  const seen = new Map();
  rows.forEach((row, index) => {
    const k = JSON.stringify(key.map((c) => row[c] ?? null));
    if (seen.has(k)) throw new Error(`${table}: rows ${seen.get(k) + 1} and ${index + 1} share ${key.join(', ')} = ${k}`);
    seen.set(k, index);
  });
}

// The highest IS number of each numbered table, for TSMEISN.
const counters = [];

function numberRows(table, isColumn, rows) {
  rows.forEach((row, index) => { row[isColumn] = index + 1; });
  counters.push({ table, highest: rows.length });
  return rows;
}

const summary = [];

// ---------------------------------------------------------------------------
// TSRUOM: units of measure. Each unit is a code of the measurement unit
// domain list of the package wqx; its words are
// that domain's description without its leading category. The UOM_TYPE is
// assigned here, by the kind of quantity the unit measures.

{
  const described = readJson('wqx', 'descriptions/MeasurementUnit.json');
  const allowed = new Set(readJson('wqx', 'values/MeasurementUnit.json').enum);
  const units = [
    ['TEMP', ['deg C', 'deg F', 'deg K']],
    ['LEN', ['m', 'cm', 'mm', 'um', 'km', 'in', 'ft', 'yd', 'mi']],
    ['AREA', ['m2', 'cm2', 'km2', 'ha', 'ft2', 'ac', 'mi2']],
    ['VOL', ['L', 'mL', 'uL', 'm3', 'gal', 'Mgal', 'ft3', 'ac-ft']],
    ['FLOW', ['cfs', 'ft3/sec', 'm3/sec', 'L/sec', 'L/min', 'm3/day', 'gal/min', 'Mgal/day', 'Mgd']],
    ['VEL', ['m/sec', 'cm/sec', 'ft/sec', 'km/hr', 'mph', 'knots']],
    ['TIME', ['seconds', 'minutes', 'hours', 'days', 'weeks', 'months', 'years']],
    ['SUBST', ['mg/L', 'ug/L', 'ng/L', 'pg/L', 'g/L', 'mg/kg', 'ug/kg', 'ng/kg', 'mg/g', 'ug/g', 'ng/g',
      'ppm', 'ppb', 'ppth', 'meq/L', 'ueq/L', 'mmol/L', 'umol/L', 'nmol/L', 'mg/m3', 'ug/m3',
      'g/m2', 'mg/m2', 'pCi/L', 'pCi/g', 'Bq/L', '% by wt', '% by vol']],
    ['TAX', ['#/L', '#/mL', '#/100mL', '#/cm2', '#/m2', '#/m3', '#col/100mL', 'MPN/100mL', 'cfu/100mL']],
    ['PROD', ['mg/L/hr', 'g/m2/day', 'mg/m2/day', 'mg/m2/hr', 'g/m3/day', 'mg/m3/day']],
    ['NONE', ['None', '%', 'fraction', 'count', 'PSU', 'PSS']],
    ['MISC', ['NTU', 'FNU', 'JTU', 'uS/cm', 'umho/cm', 'mS/cm', 'S/m', 'ohm-cm', 'mV', 'PCU', 'T.O.N.',
      'W/m2', 'uE/m2/sec', 'atm', 'kPa', 'psi', 'mmHg', 'inHg', 'dB']],
  ];
  const rows = [];
  for (const [type, codes] of units) {
    for (const code of codes) {
      if (!allowed.has(code) || !(code in described)) throw new Error(`TSRUOM: ${code} is not a unit of the domain`);
      const words = described[code].replace(/^\(\)/, '').trim();
      const comma = words.indexOf(', ');
      const text = comma >= 0 ? words.slice(comma + 2) : words;
      rows.push({
        TSRUOM_ORG_ID: ORG,
        UOM_TYPE: type,
        SHORT_FORM_NAME: code,
        DESCRIPTION_TEXT: cutWords(text, 50),
        D_USERID_CODE: USER,
        D_LAST_UPDATE_TS: STAMP,
      });
    }
  }
  numberRows('TSRUOM', 'TSRUOM_IS_NUMBER', rows);
  checkUnique('TSRUOM', rows, ['UOM_TYPE', 'SHORT_FORM_NAME', 'TSRUOM_ORG_ID']);
  summary.push(['TSRUOM', writeTable('TSRUOM', [
    ['TSRUOM_IS_NUMBER', 'is'], ['TSRUOM_ORG_ID', 'char', 8], ['UOM_TYPE', 'char', 5],
    ['SHORT_FORM_NAME', 'char', 10], ['DESCRIPTION_TEXT', 'varchar', 50],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDATE_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSRLBRMK: laboratory remark codes: every current result measure qualifier
// of the package wqx whose code fits SHORT_NAME, less
// those that the domain marks retired.

{
  const described = readJson('wqx', 'descriptions/ResultMeasureQualifier.json');
  const allowed = new Set(readJson('wqx', 'values/ResultMeasureQualifier.json').enum);
  const rows = [];
  for (const code of Object.keys(described).sort()) {
    if (!allowed.has(code) || Array.from(code).length > 6 || code.trim() !== code) continue;
    if (/\*\*\*retired\*\*\*/i.test(described[code] || '')) continue;
    rows.push({
      TSRLBRMK_ORG_ID: ORG,
      SHORT_NAME: code,
      DESCRIPTION_TEXT: cutWords(described[code] || code, 60),
      D_USERID_CODE: USER,
      D_LAST_UPDATE_TS: STAMP,
    });
  }
  numberRows('TSRLBRMK', 'TSRLBRMK_IS_NUMBER', rows);
  checkUnique('TSRLBRMK', rows, ['SHORT_NAME']);
  summary.push(['TSRLBRMK', writeTable('TSRLBRMK', [
    ['TSRLBRMK_IS_NUMBER', 'is'], ['TSRLBRMK_ORG_ID', 'char', 8], ['SHORT_NAME', 'char', 6],
    ['DESCRIPTION_TEXT', 'varchar', 60], ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDATE_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSRBIOPT: biological parts: the sample tissue anatomy domain list of the
// package wqx.

{
  const names = readJson('wqx', 'values/SampleTissueAnatomy.json').enum;
  const rows = [...names].sort().map((name) => ({
    TSRBIOPT_ORG_ID: ORG,
    NAME: cut(name, 30),
    D_USERID_CODE: USER,
    D_LAST_UPDT_TS: STAMP,
  }));
  numberRows('TSRBIOPT', 'TSRBIOPT_IS_NUMBER', rows);
  checkUnique('TSRBIOPT', rows, ['NAME']);
  summary.push(['TSRBIOPT', writeTable('TSRBIOPT', [
    ['TSRBIOPT_IS_NUMBER', 'is'], ['TSRBIOPT_ORG_ID', 'char', 8], ['NAME', 'varchar', 30],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSMLTHUN: lithologic units: the well formation type domain list of the
// package wqx, the kinds of rock and sediment a well is finished in
// ("Bedrock, Carbonate", "Sediment, Alluvium/Terrace"). The package holds no
// codes: each code is the first two letters of each word of the name, in
// capitals, cut to the column's twelve characters ("BECA" for "Bedrock,
// Carbonate").

{
  const names = readJson('wqx', 'values/WellFormationType.json').enum;
  const codeOf = (name) =>
    cut(name.split(/[^A-Za-z]+/).filter((w) => w !== '').map((w) => w.slice(0, 2).toUpperCase()).join(''), 12);
  const rows = [...names].map((name) => ({
    TSMLTHUN_CD: codeOf(name),
    TSMLTHUN_ORG_ID: ORG,
    NAME: cut(name, 120),
    D_USERID_CODE: USER,
    D_LAST_UPDT_TS: STAMP,
  })).sort((a, b) => (a.TSMLTHUN_CD < b.TSMLTHUN_CD ? -1 : a.TSMLTHUN_CD > b.TSMLTHUN_CD ? 1 : 0));
  checkUnique('TSMLTHUN', rows, ['TSMLTHUN_CD', 'TSMLTHUN_ORG_ID']);
  summary.push(['TSMLTHUN', writeTable('TSMLTHUN', [
    ['TSMLTHUN_CD', 'char', 12], ['TSMLTHUN_ORG_ID', 'char', 8], ['NAME', 'varchar', 120],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSMSIC: the divisions (by letter) and major groups (by two digits) of the
// Standard Industrial Classification, 1987 edition, with their titles.

{
  const divisions = [
    ['A', 'Agriculture, Forestry, And Fishing', [
      ['01', 'Agricultural Production Crops'],
      ['02', 'Agricultural Production Livestock And Animal Specialties'],
      ['07', 'Agricultural Services'],
      ['08', 'Forestry'],
      ['09', 'Fishing, Hunting, And Trapping'],
    ]],
    ['B', 'Mining', [
      ['10', 'Metal Mining'],
      ['12', 'Coal Mining'],
      ['13', 'Oil And Gas Extraction'],
      ['14', 'Mining And Quarrying Of Nonmetallic Minerals, Except Fuels'],
    ]],
    ['C', 'Construction', [
      ['15', 'Building Construction General Contractors And Operative Builders'],
      ['16', 'Heavy Construction Other Than Building Construction Contractors'],
      ['17', 'Construction Special Trade Contractors'],
    ]],
    ['D', 'Manufacturing', [
      ['20', 'Food And Kindred Products'],
      ['21', 'Tobacco Products'],
      ['22', 'Textile Mill Products'],
      ['23', 'Apparel And Other Finished Products Made From Fabrics And Similar Materials'],
      ['24', 'Lumber And Wood Products, Except Furniture'],
      ['25', 'Furniture And Fixtures'],
      ['26', 'Paper And Allied Products'],
      ['27', 'Printing, Publishing, And Allied Industries'],
      ['28', 'Chemicals And Allied Products'],
      ['29', 'Petroleum Refining And Related Industries'],
      ['30', 'Rubber And Miscellaneous Plastics Products'],
      ['31', 'Leather And Leather Products'],
      ['32', 'Stone, Clay, Glass, And Concrete Products'],
      ['33', 'Primary Metal Industries'],
      ['34', 'Fabricated Metal Products, Except Machinery And Transportation Equipment'],
      ['35', 'Industrial And Commercial Machinery And Computer Equipment'],
      ['36', 'Electronic And Other Electrical Equipment And Components, Except Computer Equipment'],
      ['37', 'Transportation Equipment'],
      ['38', 'Measuring, Analyzing, And Controlling Instruments; Photographic, Medical And Optical Goods; Watches And Clocks'],
      ['39', 'Miscellaneous Manufacturing Industries'],
    ]],
    ['E', 'Transportation, Communications, Electric, Gas, And Sanitary Services', [
      ['40', 'Railroad Transportation'],
      ['41', 'Local And Suburban Transit And Interurban Highway Passenger Transportation'],
      ['42', 'Motor Freight Transportation And Warehousing'],
      ['43', 'United States Postal Service'],
      ['44', 'Water Transportation'],
      ['45', 'Transportation By Air'],
      ['46', 'Pipelines, Except Natural Gas'],
      ['47', 'Transportation Services'],
      ['48', 'Communications'],
      ['49', 'Electric, Gas, And Sanitary Services'],
    ]],
    ['F', 'Wholesale Trade', [
      ['50', 'Wholesale Trade-durable Goods'],
      ['51', 'Wholesale Trade-non-durable Goods'],
    ]],
    ['G', 'Retail Trade', [
      ['52', 'Building Materials, Hardware, Garden Supply, And Mobile Home Dealers'],
      ['53', 'General Merchandise Stores'],
      ['54', 'Food Stores'],
      ['55', 'Automotive Dealers And Gasoline Service Stations'],
      ['56', 'Apparel And Accessory Stores'],
      ['57', 'Home Furniture, Furnishings, And Equipment Stores'],
      ['58', 'Eating And Drinking Places'],
      ['59', 'Miscellaneous Retail'],
    ]],
    ['H', 'Finance, Insurance, And Real Estate', [
      ['60', 'Depository Institutions'],
      ['61', 'Non-depository Credit Institutions'],
      ['62', 'Security And Commodity Brokers, Dealers, Exchanges, And Services'],
      ['63', 'Insurance Carriers'],
      ['64', 'Insurance Agents, Brokers, And Service'],
      ['65', 'Real Estate'],
      ['67', 'Holding And Other Investment Offices'],
    ]],
    ['I', 'Services', [
      ['70', 'Hotels, Rooming Houses, Camps, And Other Lodging Places'],
      ['72', 'Personal Services'],
      ['73', 'Business Services'],
      ['75', 'Automotive Repair, Services, And Parking'],
      ['76', 'Miscellaneous Repair Services'],
      ['78', 'Motion Pictures'],
      ['79', 'Amusement And Recreation Services'],
      ['80', 'Health Services'],
      ['81', 'Legal Services'],
      ['82', 'Educational Services'],
      ['83', 'Social Services'],
      ['84', 'Museums, Art Galleries, And Botanical And Zoological Gardens'],
      ['86', 'Membership Organizations'],
      ['87', 'Engineering, Accounting, Research, Management, And Related Services'],
      ['88', 'Private Households'],
      ['89', 'Miscellaneous Services'],
    ]],
    ['J', 'Public Administration', [
      ['91', 'Executive, Legislative, And General Government, Except Finance'],
      ['92', 'Justice, Public Order, And Safety'],
      ['93', 'Public Finance, Taxation, And Monetary Policy'],
      ['94', 'Administration Of Human Resource Programs'],
      ['95', 'Administration Of Environmental Quality And Housing Programs'],
      ['96', 'Administration Of Economic Programs'],
      ['97', 'National Security And International Affairs'],
    ]],
    ['K', 'Nonclassifiable Establishments', [
      ['99', 'Nonclassifiable Establishments'],
    ]],
  ];
  const rows = [];
  for (const [letter, title, groups] of divisions) {
    rows.push({ TSMSIC_CODE: letter, NAME: cut(title, 120) });
    for (const [code, name] of groups) rows.push({ TSMSIC_CODE: code, NAME: cut(name, 120) });
  }
  for (const row of rows) Object.assign(row, { TSMSIC_ORG_ID: ORG, D_USERID_CODE: USER, D_LAST_UPDT_TS: STAMP });
  checkUnique('TSMSIC', rows, ['TSMSIC_CODE', 'TSMSIC_ORG_ID']);
  summary.push(['TSMSIC', writeTable('TSMSIC', [
    ['TSMSIC_CODE', 'char', 4], ['TSMSIC_ORG_ID', 'char', 8], ['NAME', 'varchar', 120],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSMFHU: the 21 regions of the hydrologic unit system (two-digit codes,
// padded with zeros to the eight digits of the column), with the states each
// region lies in, as postal codes in alphabetical order separated by commas,
// as many whole codes as the column holds.

function wholeCodes(codes, width) {
  let out = '';
  for (const code of codes) {
    const next = out ? `${out},${code}` : code;
    if (next.length > width) break;
    out = next;
  }
  return out;
}

{
  const regions = [
    ['01', 'New England Region', 'CT MA ME NH NY RI VT'],
    ['02', 'Mid Atlantic Region', 'CT DC DE MA MD NJ NY PA VA VT WV'],
    ['03', 'South Atlantic-Gulf Region', 'AL FL GA LA MS NC SC TN VA'],
    ['04', 'Great Lakes Region', 'IL IN MI MN NY OH PA WI'],
    ['05', 'Ohio Region', 'IL IN KY MD NC NY OH PA TN VA WV'],
    ['06', 'Tennessee Region', 'AL GA KY MS NC TN VA'],
    ['07', 'Upper Mississippi Region', 'IA IL IN MI MN MO SD WI'],
    ['08', 'Lower Mississippi Region', 'AR KY LA MO MS TN'],
    ['09', 'Souris-Red-Rainy Region', 'MN ND SD'],
    ['10', 'Missouri Region', 'CO IA KS MN MO MT ND NE SD WY'],
    ['11', 'Arkansas-White-Red Region', 'AR CO KS LA MO NM OK TX'],
    ['12', 'Texas-Gulf Region', 'LA NM TX'],
    ['13', 'Rio Grande Region', 'CO NM TX'],
    ['14', 'Upper Colorado Region', 'AZ CO NM UT WY'],
    ['15', 'Lower Colorado Region', 'AZ CA NM NV UT'],
    ['16', 'Great Basin Region', 'CA ID NV OR UT WY'],
    ['17', 'Pacific Northwest Region', 'CA ID MT NV OR UT WA WY'],
    ['18', 'California Region', 'CA NV OR'],
    ['19', 'Alaska Region', 'AK'],
    ['20', 'Hawaii Region', 'HI'],
    ['21', 'Caribbean Region', 'PR VI'],
  ];
  const rows = regions.map(([code, name, states]) => ({
    TSMFHU_ORG_ID: ORG,
    HYDROLOGIC_UNIT_CD: code.padEnd(8, '0'),
    TYPE_CODE: 'REGION',
    NAME: cut(name, 200),
    STATES_NAME: wholeCodes(states.split(' ').sort(), 16),
    D_USERID_CODE: USER,
    D_LAST_UPDT_TS: STAMP,
  }));
  numberRows('TSMFHU', 'TSMFHU_IS_NUMBER', rows);
  checkUnique('TSMFHU', rows, ['NAME', 'STATES_NAME']);
  summary.push(['TSMFHU', writeTable('TSMFHU', [
    ['TSMFHU_IS_NUMBER', 'is'], ['TSMFHU_ORG_ID', 'char', 8], ['HYDROLOGIC_UNIT_CD', 'char', 8],
    ['TYPE_CODE', 'varchar', 7], ['NAME', 'varchar', 200, true], ['STATES_NAME', 'char', 16, true],
    ['LAT_MAX_DEGREE', 'deg', 0, true], ['LAT_MIN_DEGREE', 'deg', 0, true],
    ['LONG_MAX_DEGREE', 'deg', 0, true], ['LONG_MIN_DEGREE', 'deg', 0, true],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], rows)]);
}

// ---------------------------------------------------------------------------
// TSMGEOPA: geopolitical areas.

// Degrees with four decimals, rounded outward so that the box holds the
// geometry.
const degMin = (v) => (Math.floor(v * 1e4 + 1e-6) / 1e4).toFixed(4);
const degMax = (v) => (Math.ceil(v * 1e4 - 1e-6) / 1e4).toFixed(4);

// Shoreline of a county: the stretches of its outline that it shares with no
// other county and that are not an international land border. In the Census
// Bureau's cartographic boundaries the counties are clipped to the shoreline
// of the oceans, their bays and estuaries and the Great Lakes, so what a
// county shares with no other is shoreline or the border with Canada or
// Mexico. The land border is taken from Natural Earth (world-atlas): the arcs
// that the United States shares with Canada or Mexico; a stretch of county
// outline lying within BORDER_KM of them is border, not shoreline.
const BORDER_KM = 5;
// A county counts as coastal, or as on a Great Lake, with at least this much
// shoreline of that kind.
const SHORE_MIN_KM = 1;

function decodeArcs(topology) {
  const [sx, sy] = topology.transform.scale;
  const [tx, ty] = topology.transform.translate;
  return topology.arcs.map((arc) => {
    let x = 0;
    let y = 0;
    return arc.map(([dx, dy]) => {
      x += dx;
      y += dy;
      return [x * sx + tx, y * sy + ty];
    });
  });
}

function geometryArcs(geometry) {
  if (geometry.type === 'Polygon') return geometry.arcs.flat();
  if (geometry.type === 'MultiPolygon') return geometry.arcs.flat(2);
  return [];
}

const KM_PER_DEG_LAT = 110.574;
function km(a, b) {
  const lat = ((a[1] + b[1]) / 2) * (Math.PI / 180);
  const dx = (a[0] - b[0]) * 111.32 * Math.cos(lat);
  const dy = (a[1] - b[1]) * KM_PER_DEG_LAT;
  return Math.hypot(dx, dy);
}

function pointSegmentKm(p, a, b) {
  const cos = Math.cos(p[1] * (Math.PI / 180));
  const ax = (a[0] - p[0]) * 111.32 * cos;
  const ay = (a[1] - p[1]) * KM_PER_DEG_LAT;
  const bx = (b[0] - p[0]) * 111.32 * cos;
  const by = (b[1] - p[1]) * KM_PER_DEG_LAT;
  const dx = bx - ax;
  const dy = by - ay;
  const len2 = dx * dx + dy * dy;
  let t = len2 > 0 ? -(ax * dx + ay * dy) / len2 : 0;
  t = Math.max(0, Math.min(1, t));
  return Math.hypot(ax + t * dx, ay + t * dy);
}

// The land border of the United States with Canada and Mexico, as segments
// in a grid of CELL degrees.
const CELL = 0.1;
function borderIndex() {
  const world = readJson('world-atlas', 'countries-10m.json');
  const arcs = decodeArcs(world);
  const owners = new Map();
  for (const g of world.objects.countries.geometries) {
    if (!['840', '124', '484'].includes(g.id)) continue;
    for (const i of geometryArcs(g)) {
      const k = i < 0 ? ~i : i;
      if (!owners.has(k)) owners.set(k, new Set());
      owners.get(k).add(g.id);
    }
  }
  const grid = new Map();
  for (const [k, ids] of owners) {
    if (!(ids.has('840') && (ids.has('124') || ids.has('484')))) continue;
    const line = arcs[k];
    for (let i = 1; i < line.length; i++) {
      const a = line[i - 1];
      const b = line[i];
      const x0 = Math.floor(Math.min(a[0], b[0]) / CELL);
      const x1 = Math.floor(Math.max(a[0], b[0]) / CELL);
      const y0 = Math.floor(Math.min(a[1], b[1]) / CELL);
      const y1 = Math.floor(Math.max(a[1], b[1]) / CELL);
      for (let x = x0; x <= x1; x++) {
        for (let y = y0; y <= y1; y++) {
          const key = `${x},${y}`;
          if (!grid.has(key)) grid.set(key, []);
          grid.get(key).push([a, b]);
        }
      }
    }
  }
  return (p) => {
    const cx = Math.floor(p[0] / CELL);
    const cy = Math.floor(p[1] / CELL);
    for (let x = cx - 1; x <= cx + 1; x++) {
      for (let y = cy - 1; y <= cy + 1; y++) {
        for (const [a, b] of grid.get(`${x},${y}`) || []) {
          if (pointSegmentKm(p, a, b) <= BORDER_KM) return true;
        }
      }
    }
    return false;
  };
}

// Whether a stretch of shoreline in a state lies on a Great Lake (or the
// rivers that join them) rather than on the ocean side. Illinois, Indiana,
// Michigan, Minnesota, Ohio and Wisconsin touch no ocean; New York and
// Pennsylvania touch both, the Great Lakes in their west and north.
const GREAT_LAKE_STATES = new Set(['17', '18', '26', '27', '39', '55']);
function onGreatLake(stateFips, point) {
  if (GREAT_LAKE_STATES.has(stateFips)) return true;
  if (stateFips === '36') return point[0] < -75.0;
  if (stateFips === '42') return point[1] > 41.5;
  return false;
}

function shoreline(us) {
  const arcs = decodeArcs(us);
  const counties = us.objects.counties.geometries;
  const uses = new Map();
  for (const g of counties) {
    for (const i of geometryArcs(g)) {
      const k = i < 0 ? ~i : i;
      uses.set(k, (uses.get(k) || 0) + 1);
    }
  }
  const nearBorder = borderIndex();
  const result = new Map();
  for (const g of counties) {
    const state = g.id.slice(0, 2);
    let coast = 0;
    let lake = 0;
    for (const i of geometryArcs(g)) {
      const k = i < 0 ? ~i : i;
      if (uses.get(k) !== 1) continue;
      const line = arcs[k];
      const border = line.map((p) => nearBorder(p));
      for (let j = 1; j < line.length; j++) {
        if (border[j - 1] && border[j]) continue;
        const length = km(line[j - 1], line[j]);
        const mid = [(line[j - 1][0] + line[j][0]) / 2, (line[j - 1][1] + line[j][1]) / 2];
        if (onGreatLake(state, mid)) lake += length;
        else coast += length;
      }
    }
    result.set(g.id, { coast, lake });
  }
  return result;
}

// Postal codes: the ISO 3166-2 codes of the states (iso3166-2-db), which are
// the postal abbreviations; for the outlying areas, whose ISO 3166-1 codes
// are their postal abbreviations too, by FIPS state code.
const OUTLYING = { '60': 'AS', '66': 'GU', '69': 'MP', '72': 'PR', '78': 'VI' };

{
  const iso = readJson('iso3166-2-db', 'data/iso3166-2.json');
  const us = readJson('us-atlas', 'counties-10m.json');

  const states = new Map();
  for (const g of us.objects.states.geometries) {
    let name = g.properties.name;
    let postal = null;
    const region = iso.US.regions.find((r) => r.fips === g.id);
    if (region) {
      postal = region.iso;
    } else if (OUTLYING[g.id]) {
      postal = OUTLYING[g.id];
      const entry = iso[postal];
      if (!entry) throw new Error(`no ISO 3166-1 entry ${postal} for state ${g.id} ${name}`);
      // The formal names of two outlying areas are longer than STATE_NAME;
      // their short names from the ISO list are kept instead.
      if (Array.from(name).length > 21) name = entry.names.geonames || entry.names.en;
    } else {
      throw new Error(`no postal code for state ${g.id} ${name}`);
    }
    states.set(g.id, { name, postal });
  }

  const shore = shoreline(us);
  const features = topojson.feature(us, us.objects.counties).features;
  features.sort((a, b) => (a.id < b.id ? -1 : a.id > b.id ? 1 : 0));

  const rows = [];
  let coastal = 0;
  let lakes = 0;
  for (const f of features) {
    const stateFips = f.id.slice(0, 2);
    const countyFips = f.id.slice(2);
    const state = states.get(stateFips);
    if (!state) throw new Error(`county ${f.id} of an unknown state`);
    let name = f.properties.name;
    // Independent cities (county codes from 510 in Maryland, Missouri,
    // Nevada and Virginia) share their names with counties of the same
    // state; the Census file names them without the word "city".
    if (['24', '29', '32', '51'].includes(stateFips) && Number(countyFips) >= 510 && !/ city$/i.test(name)) {
      name += ' city';
    }
    let minX = Infinity;
    let minY = Infinity;
    let maxX = -Infinity;
    let maxY = -Infinity;
    const walk = (c) => {
      if (typeof c[0] === 'number') {
        minX = Math.min(minX, c[0]); maxX = Math.max(maxX, c[0]);
        minY = Math.min(minY, c[1]); maxY = Math.max(maxY, c[1]);
      } else {
        c.forEach(walk);
      }
    };
    walk(f.geometry.coordinates);
    const s = shore.get(f.id);
    const isCoastal = s.coast >= SHORE_MIN_KM;
    const isLake = s.lake >= SHORE_MIN_KM;
    coastal += isCoastal ? 1 : 0;
    lakes += isLake ? 1 : 0;
    rows.push({
      LAT_MIN_DEGREE: degMin(minY),
      LAT_MAX_DEGREE: degMax(maxY),
      LONG_MIN_DEGREE: degMin(minX),
      LONG_MAX_DEGREE: degMax(maxX),
      FIPS_COUNTY_CODE: countyFips,
      COUNTY_NAME: cut(name.toUpperCase(), 25),
      STATE_FIPS_CODE: stateFips,
      STATE_NAME: cut(state.name.toUpperCase(), 21),
      STATE_POSTAL_CODE: state.postal,
      COUNTRY_CODE: 'US',
      COUNTRY_NAME: 'UNITED STATES',
      COASTAL_IND_CD: isCoastal ? 'Y' : 'N',
      GREAT_LAKE_IND_CD: isLake ? 'Y' : 'N',
    });
  }

  // Canada's provinces and territories and Mexico's states: each a pair of
  // rows, the main one with county "NOT APPLICABLE" and county code "N/A",
  // the second with county code "000". The state code is the subdivision's
  // FIPS 10-4 number; Canada's postal abbreviations are its ISO 3166-2
  // codes, Mexico's ISO codes have three letters and no postal code is given.
  const countryRows = [];
  for (const [code, country, countryName] of [['CN', 'CA', 'CANADA'], ['MX', 'MX', 'MEXICO']]) {
    const regions = [...iso[country].regions].sort((a, b) => (a.fips < b.fips ? -1 : a.fips > b.fips ? 1 : 0));
    for (const r of regions) {
      if (!/^\d\d$/.test(r.fips)) throw new Error(`${country} ${r.name}: FIPS code ${r.fips}`);
      const base = {
        LAT_MIN_DEGREE: null,
        LAT_MAX_DEGREE: null,
        LONG_MIN_DEGREE: null,
        LONG_MAX_DEGREE: null,
        COUNTY_NAME: 'NOT APPLICABLE',
        STATE_FIPS_CODE: r.fips,
        STATE_NAME: cut(r.name.toUpperCase(), 21),
        STATE_POSTAL_CODE: country === 'CA' && /^[A-Z]{2}$/.test(r.iso) ? r.iso : null,
        COUNTRY_CODE: code,
        COUNTRY_NAME: countryName,
        COASTAL_IND_CD: 'N',
        GREAT_LAKE_IND_CD: 'N',
      };
      countryRows.push({ ...base, FIPS_COUNTY_CODE: 'N/A' }, { ...base, FIPS_COUNTY_CODE: '000' });
    }
  }

  const all = [...rows, ...countryRows];
  for (const row of all) Object.assign(row, { TSMGEOPA_ORG_ID: ORG, D_USERID_CODE: USER, D_LAST_UPDT_TS: STAMP });
  numberRows('TSMGEOPA', 'TSMGEOPA_IS_NUMBER', all);
  checkUnique('TSMGEOPA', all, ['COUNTRY_CODE', 'STATE_NAME', 'STATE_FIPS_CODE', 'COUNTY_NAME', 'FIPS_COUNTY_CODE', 'TSMGEOPA_ORG_ID']);
  summary.push(['TSMGEOPA', writeTable('TSMGEOPA', [
    ['TSMGEOPA_IS_NUMBER', 'is'], ['TSMGEOPA_ORG_ID', 'char', 8],
    ['LAT_MIN_DEGREE', 'deg', 0, true], ['LAT_MAX_DEGREE', 'deg', 0, true],
    ['LONG_MIN_DEGREE', 'deg', 0, true], ['LONG_MAX_DEGREE', 'deg', 0, true],
    ['FIPS_COUNTY_CODE', 'char', 3, true], ['COUNTY_NAME', 'varchar', 25, true],
    ['STATE_FIPS_CODE', 'char', 2], ['STATE_NAME', 'varchar', 21], ['STATE_POSTAL_CODE', 'char', 2, true],
    ['COUNTRY_CODE', 'char', 2], ['COUNTRY_NAME', 'char', 13],
    ['COASTAL_IND_CD', 'char', 1], ['GREAT_LAKE_IND_CD', 'char', 1],
    ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], all)]);
  console.log(`TSMGEOPA: ${rows.length} US counties (${coastal} coastal, ${lakes} on a Great Lake), ${countryRows.length} rows for Canada and Mexico`);

  // TSMGEOUN: geologic units: the codes of the local aquifer domain list of
  // the package wqx, the geologic unit codes of the USGS water data system,
  // each filed under the FIPS code of a state ("01:111ALVM"). A code that
  // several states use is kept once, with the first state in FIPS order,
  // since the key is the code within the organisation; codes filed under a
  // number that is no state of the atlas (the coastal and lake contexts) are
  // left out. STATE_CODE is the state's postal code. The package holds no
  // names: NAME says the code and its state, "Geologic unit 111ALVM,
  // Alabama". TYPE_CODE is "B": each code names an aquifer, a hydrologic
  // unit, as the geologic unit it lies in.
  {
    const firstState = new Map();
    for (const entry of readJson('wqx', 'values/LocalAquifer.json').enum) {
      const [fips, code] = entry.split(':');
      if (!states.has(fips) || code.trim() !== code || code === '') continue;
      if (!firstState.has(code)) firstState.set(code, fips);
    }
    const units = [...firstState].sort(([a], [b]) => (a < b ? -1 : a > b ? 1 : 0)).map(([code, fips]) => ({
      TSMGEOUN_CD: code,
      TSMGEOUN_ORG_ID: ORG,
      TYPE_CODE: 'B',
      STATE_CODE: states.get(fips).postal,
      NAME: `Geologic unit ${code}, ${states.get(fips).name}`,
      D_USERID_CODE: USER,
      D_LAST_UPDT_TS: STAMP,
    }));
    checkUnique('TSMGEOUN', units, ['TSMGEOUN_CD', 'TSMGEOUN_ORG_ID']);
    summary.push(['TSMGEOUN', writeTable('TSMGEOUN', [
      ['TSMGEOUN_CD', 'char', 12], ['TSMGEOUN_ORG_ID', 'char', 8], ['TYPE_CODE', 'char', 1],
      ['STATE_CODE', 'char', 2], ['NAME', 'varchar', 80], ['D_USERID_CODE', 'char', 8],
      ['D_LAST_UPDT_TS', 'date'],
    ], units)]);
  }
}

// ---------------------------------------------------------------------------
// TSMPRMVL: permitted values, the value lists of the coded fields of the
// warehouse, one row per value of each (TABLE_NAME, FIELD_NAME) with its
// display position in SEQUENCE_NUMBER. Most lists are domain lists of the
// package wqx; the few that no package holds are written here. Which table
// and field a list belongs to is decided here.

// Orders texts as a person reads them: runs of digits by their number, the
// rest by its characters, ignoring case first.
function naturalCompare(a, b) {
  const split = (s) => s.match(/\d+|\D+/g) || [];
  const x = split(a);
  const y = split(b);
  for (let i = 0; i < Math.min(x.length, y.length); i++) {
    const p = x[i];
    const q = y[i];
    if (/^\d/.test(p) && /^\d/.test(q)) {
      if (Number(p) !== Number(q)) return Number(p) - Number(q);
      continue;
    }
    const pl = p.toLowerCase();
    const ql = q.toLowerCase();
    if (pl !== ql) return pl < ql ? -1 : 1;
  }
  if (x.length !== y.length) return x.length - y.length;
  return a < b ? -1 : a > b ? 1 : 0;
}

// A few descriptions of the package were stored as UTF-8 read as code page
// 1252 ("Â±" for "±"): such runs are read back as UTF-8.
const CP1252_HIGH_BYTES = [
  0x80, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8a, 0x8b, 0x8c, 0x8e, 0x91,
  0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9a, 0x9b, 0x9c, 0x9e, 0x9f,
];
const CP1252_BYTE = new Map(Array.from(CP1252_HIGH, (ch, i) => [ch, CP1252_HIGH_BYTES[i]]));
function unmangle(text) {
  const byteOf = (ch) => CP1252_BYTE.get(ch) ?? ch.codePointAt(0);
  return text.replace(/[\u00c2-\u00f4][\u0080-\u00bf\u0152-\u2122]{1,3}/g, (run) => {
    const chars = Array.from(run);
    const lead = byteOf(chars[0]);
    const need = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (chars.length < need) return run;
    const bytes = chars.slice(0, need).map(byteOf);
    if (bytes.some((b) => b > 0xff || (b !== lead && (b < 0x80 || b > 0xbf)))) return run;
    const decoded = Buffer.from(bytes).toString('utf8');
    if (decoded.includes('\ufffd') || Array.from(decoded).length !== 1) return run;
    return decoded + chars.slice(need).join('');
  });
}

// Sub- and superscript digits and signs of chemical formulas, written plain.
const SCRIPTS = new Map([...'₀₁₂₃₄₅₆₇₈₉'].map((ch, i) => [ch, String(i)])
  .concat([...'⁰¹²³⁴⁵⁶⁷⁸⁹'].map((ch, i) => [ch, String(i)]), [['⁺', '+'], ['⁻', '-'], ['₊', '+'], ['₋', '-']]));

// A domain description as a FIELD_DESC: NULL where there is none or it is
// only an address; the validity date some carry and the outline number
// others start with are left out; characters that code page 1252 lacks are
// spelt with ones it has or, failing that ("≡" of a triple bond), dropped.
function domainDescription(text) {
  if (!text) return null;
  let out = spell(Array.from(unmangle(text), (ch) => SCRIPTS.get(ch) ?? ch).join(''))
    .replace(/\s*ValidDate:\s*\d{4}-\d\d-\d\d\s*/g, ' ')
    .replace(/^\s*\d+(\.\d+)?\)\s*/, '')
    .replace(/\s+/g, ' ')
    .trim();
  if (/^<?https?:\/\/\S+>?$/.test(out)) return null;
  out = Array.from(out, (ch) => (isCp1252(ch) ? ch : '')).join('');
  return out === '' ? null : cutWords(out, 254);
}

// The width of the fields that the warehouse's own tables give; other
// fields hold values of up to FIELD_VALUE's 40 characters.
const FIELD_WIDTH = new Map([
  ['TSMGEOPA.COUNTRY_CODE', 2], ['TSMGEOPA.COASTAL_IND_CD', 1], ['TSMGEOPA.GREAT_LAKE_IND_CD', 1],
  ['TSMVSTC.PRIMARY_TYPE_CD', 30], ['TSMVSTC.NATURAL_IND_CD', 1],
  ['TSRANLEQ.TYPE_NAME', 32], ['TSRFLDGR.TYPE_NAME', 25], ['TSRFLDGR.NAME', 60],
  ['TSRUOM.UOM_TYPE', 5], ['TSRCHAR.UOM_TYPE', 5], ['TSRCHAR.PROC_REQ_IND_CD', 1],
  ['TSRCHAR.SAMP_FRAC_REQ_CD', 1], ['TSRCHAR.VALID_FOR_QC_IND', 1],
  ['TSRANLPR.OWNER_TYPE_CODE', 3], ['TSRLSPP.OWNER_TYPE_CODE', 3], ['TSRANLPR.SOURCE_ACR', 12],
]);
const fieldWidth = (table, field) => Math.min(FIELD_WIDTH.get(`${table}.${field}`) ?? 40, 40);

{
  const lists = [];
  const left = [];

  // A list written here: [value, description] pairs in display order; every
  // value must fit its field.
  function handList(table, field, pairs) {
    const width = fieldWidth(table, field);
    for (const [value] of pairs) {
      if (Array.from(value).length > width) throw new Error(`TSMPRMVL ${table}.${field}: ${value} is longer than ${width}`);
    }
    lists.push({ table, field, values: pairs.map(([value, desc]) => ({ value, desc: desc ?? null })) });
  }

  // A domain list of wqx in natural order with its descriptions, less the
  // values marked retired and those longer than the field, which are counted.
  function domainValues(domain, width) {
    const values = readJson('wqx', `values/${domain}.json`).enum;
    const describedFile = `descriptions/${domain}.json`;
    const described = existsSync(join(modules, 'wqx', describedFile)) ? readJson('wqx', describedFile) : {};
    const out = [];
    for (const value of [...values].sort(naturalCompare)) {
      const desc = described[value] || '';
      if (/\*\*\*retired\*\*\*/i.test(value) || /\*\*\*retired\*\*\*/i.test(desc)) continue;
      if (value.trim() !== value || value === '') throw new Error(`wqx ${domain}: value ${JSON.stringify(value)}`);
      checkText(value, `wqx ${domain}`);
      if (Array.from(value).length > width) {
        left.push({ domain, value });
        continue;
      }
      out.push({ value, desc: domainDescription(desc) });
    }
    return out;
  }

  function domainList(table, field, domain) {
    const values = domainValues(domain, fieldWidth(table, field));
    lists.push({ table, field, values });
    return values;
  }

  // Field activities. The activity categories are the activity types of the
  // domain; the companion lists _S and _M hold those offered for samples
  // (every type that is a sample) and for field measurements and
  // observations (the rest), each a subset of the main list.
  const categories = domainList('TSRFDACT', 'CATEGORY_TYPE_NAME', 'ActivityType');
  lists.push({ table: 'TSRFDACT', field: 'CATEGORY_TYPE_NAME_S', values: categories.filter((c) => /Sample/.test(c.value)) });
  lists.push({ table: 'TSRFDACT', field: 'CATEGORY_TYPE_NAME_M', values: categories.filter((c) => !/Sample/.test(c.value)) });
  domainList('TSRFDACT', 'MEDIUM_TYPE_NAME', 'ActivityMedia');
  domainList('TSRFDACT', 'MEDIUM_SUBDIV_NAME', 'ActivityMediaSubdivision');
  domainList('TSRFDACT', 'RELATIVE_DEPTH_NAME', 'RelativeDepth');
  domainList('TSRFDACT', 'THERMAL_PRSRV_NAME', 'ThermalPreservative');
  domainList('TSRFDACT', 'CONTAINER_TYPE_NAME', 'ContainerType');
  domainList('TSRFDACT', 'CONTAINER_COLOR_NAME', 'ContainerColor');
  domainList('TSRFDACT', 'HYDRO_CONDITION_NAME', 'HydrologicCondition');
  domainList('TSRFDACT', 'HYDRO_EVENT_NAME', 'HydrologicEvent');
  domainList('TSRFDACT', 'ASSEMBLAGE_NAME', 'Assemblage');
  domainList('TSRFDACT', 'FIELD_PROCEDURE_ID', 'SampleCollectionMethod');
  domainList('TSRFDACT', 'FIELD_PROC_SOURCE', 'SampleCollectionMethodContext');
  domainList('TSRFDACT', 'GROUP_TYPE_NAME', 'ActivityGroupType');
  domainList('TSRFDACT', 'TIME_ZONE_CD', 'TimeZone');

  // Field gear: its types and the names of the sample collection equipment.
  domainList('TSRFLDGR', 'TYPE_NAME', 'SampleCollectionEquipmentType');
  domainList('TSRFLDGR', 'NAME', 'SampleCollectionEquipment');

  // Stations and their location points.
  domainList('TSMSTATN', 'LOCATION_TYPE_NAME', 'MonitoringLocationType');
  domainList('TSMSTATN', 'WELL_TYPE_NAME', 'WellType');
  domainList('TSMSTATN', 'AQUIFER_TYPE_NAME', 'AquiferType');
  domainList('TSMSTATN', 'NATL_AQUIFER_CODE', 'NationalAquifer');
  domainList('TSMSTATN', 'REFERENCE_LOC_TYPE', 'ReferenceLocationType');
  domainList('TSMALP', 'HORIZ_DATUM_CODE', 'HorizontalReferenceDatum');
  domainList('TSMALP', 'HORIZ_METHOD_NAME', 'HorizontalCollectionMethod');
  domainList('TSMALP', 'VERT_DATUM_CODE', 'VerticalReferenceDatum');
  domainList('TSMALP', 'VERT_METHOD_NAME', 'VerticalCollectionMethod');

  // Results and their detection and quantitation limits.
  domainList('TSRRSULT', 'VALUE_TYPE_NAME', 'ResultValueType');
  domainList('TSRRSULT', 'STATUS_NAME', 'ResultStatus');
  domainList('TSRRSULT', 'STATISTIC_TYPE_NAME', 'ResultStatisticalBase');
  domainList('TSRRSULT', 'SAMPLE_FRACTION_NAME', 'SampleFraction');
  domainList('TSRRSULT', 'DETECTION_COND_NAME', 'ResultDetectionCondition');
  domainList('TSRRSULT', 'WEIGHT_BASIS_NAME', 'ResultWeightBasis');
  domainList('TSRRSULT', 'TEMP_BASIS_NAME', 'ResultTemperatureBasis');
  domainList('TSRRSULT', 'DURATION_BASIS_NAME', 'ResultTimeBasis');
  domainList('TSRRSULT', 'SPECIATION_NAME', 'MethodSpeciation');
  domainList('TSRRSULT', 'BIO_INTENT_NAME', 'BiologicalIntent');
  domainList('TSRRSULT', 'FREQ_CLASS_NAME', 'FrequencyClassDescriptor');
  domainList('TSRRSULT', 'FREQ_CLASS_TYPE', 'FrequencyClassType');
  domainList('TSRRSULT', 'CELL_FORM_NAME', 'CellForm');
  domainList('TSRRSULT', 'CELL_SHAPE_NAME', 'CellShape');
  domainList('TSRRSULT', 'HABIT_NAME', 'Habit');
  domainList('TSRRSULT', 'VOLTINISM_NAME', 'Voltinism');
  domainList('TSRRSULT', 'SAMPLING_POINT_TYPE', 'ResultSamplingPointType');
  domainList('TSRRSULT', 'TOXICITY_TEST_TYPE', 'ToxicityTestType');
  domainList('TSRRSULT', 'TIME_ZONE_CD', 'TimeZone');
  domainList('TSRDQL', 'TYPE_NAME', 'DetectionQuantitationLimitType');

  // The groups of characteristics.
  domainList('TSRCHAR', 'GROUP_NAME', 'CharacteristicGroup');

  // The source acronyms of analytical procedures: the method contexts.
  domainList('TSRANLPR', 'SOURCE_ACR', 'AnalyticalMethodContext');

  // Lists that no package holds.
  handList('TSRANLEQ', 'TYPE_NAME', [
    'Acoustic Velocity', 'Autoanalyzer', 'Chromatography', 'Conductivity', 'Electrochemical',
    'Microscope', 'None', 'Particle Counter', 'Physical/Handling', 'Probe', 'Spectroscopy',
    'Test Kit', 'Titration', 'Visual Inspection',
  ].map((v) => [v]));
  const uomTypes = [
    ['TEMP', 'Temperature'], ['AREA', 'Area'], ['VOL', 'Volume'], ['VEL', 'Velocity'],
    ['FLOW', 'Flow'], ['MISC', 'Miscellaneous'], ['TIME', 'Time'], ['TAX', 'Taxon count'],
    ['LEN', 'Length'], ['PROD', 'Productivity'], ['SUBST', 'Substance'], ['NONE', 'None (dimensionless)'],
  ];
  handList('TSRUOM', 'UOM_TYPE', uomTypes);
  handList('TSRCHAR', 'UOM_TYPE', uomTypes);
  const owners = [['NAT', 'National'], ['ORG', 'Organization']];
  handList('TSRANLPR', 'OWNER_TYPE_CODE', owners);
  handList('TSRLSPP', 'OWNER_TYPE_CODE', owners);
  handList('TSRCITN', 'OWNER_TYPE_CODE', owners);
  handList('TSMGEOPA', 'COUNTRY_CODE', [['US', 'United States'], ['CN', 'Canada'], ['MX', 'Mexico']]);
  const yesNo = [['Y', 'Yes'], ['N', 'No']];
  handList('TSMGEOPA', 'COASTAL_IND_CD', yesNo);
  handList('TSMGEOPA', 'GREAT_LAKE_IND_CD', yesNo);
  handList('TSMVSTC', 'NATURAL_IND_CD', yesNo);
  handList('TSRCHAR', 'PROC_REQ_IND_CD', yesNo);
  handList('TSRCHAR', 'SAMP_FRAC_REQ_CD', yesNo);
  handList('TSRCHAR', 'VALID_FOR_QC_IND', yesNo);
  // Primary station types, with the description of the monitoring location
  // type of the same name where the domain has one.
  const locationTypes = new Map(domainValues('MonitoringLocationType', 40).map((t) => [t.value, t.desc]));
  handList('TSMVSTC', 'PRIMARY_TYPE_CD', [
    'Atmosphere', 'Canal', 'Cave', 'Estuary', 'Facility', 'Great Lake', 'Lake', 'Land', 'Ocean',
    'Reservoir', 'Seep', 'Spring', 'Stream', 'Well', 'Wetland',
  ].map((v) => [v, locationTypes.get(v) ?? null]));

  const rows = [];
  const sorted = [...lists].sort((a, b) => (a.table !== b.table ? (a.table < b.table ? -1 : 1) : a.field < b.field ? -1 : a.field > b.field ? 1 : 0));
  for (const { table, field, values } of sorted) {
    if (values.length === 0 || values.length > 999) throw new Error(`TSMPRMVL ${table}.${field}: ${values.length} values`);
    values.forEach(({ value, desc }, index) => {
      rows.push({
        TSMPRMVL_ORG_ID: ORG,
        TABLE_NAME: table,
        FIELD_NAME: field,
        SEQUENCE_NUMBER: index + 1,
        FIELD_VALUE: value,
        FIELD_DESC: desc,
        D_USERID_CODE: USER,
        D_LAST_UPDATE_TS: STAMP,
      });
    });
  }
  numberRows('TSMPRMVL', 'TSMPRMVL_IS_NUMBER', rows);
  checkUnique('TSMPRMVL', rows, ['TABLE_NAME', 'FIELD_NAME', 'SEQUENCE_NUMBER']);
  checkUnique('TSMPRMVL', rows, ['TABLE_NAME', 'FIELD_NAME', 'FIELD_VALUE']);
  summary.push(['TSMPRMVL', writeTable('TSMPRMVL', [
    ['TSMPRMVL_IS_NUMBER', 'is'], ['TSMPRMVL_ORG_ID', 'char', 8], ['TABLE_NAME', 'char', 8],
    ['FIELD_NAME', 'varchar', 20], ['SEQUENCE_NUMBER', 'seq'], ['FIELD_VALUE', 'varchar', 40],
    ['FIELD_DESC', 'varchar', 254, true], ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDATE_TS', 'date'],
  ], rows)]);
  const shortened = new Map();
  for (const { domain } of left) shortened.set(domain, (shortened.get(domain) || 0) + 1);
  console.log(`TSMPRMVL: ${lists.length} lists; left out as longer than their field: ${[...shortened].map(([d, n]) => `${d} ${n}`).join(', ')}`);
}

// ---------------------------------------------------------------------------
// TSMEISN: the last IS number given out in each numbered table. The counter
// of TSMPSR is kept under the name TSMPROLE.

{
  const rows = counters.map(({ table, highest }) => ({
    TSMEISN_NAME: table === 'TSMPSR' ? 'TSMPROLE' : table,
    TSMEISN_ORG_ID: ORG,
    IS_NUMBER: highest,
    TABLE_VERSION: null,
    D_USERID_CODE: USER,
    D_LAST_UPDT_TS: STAMP,
  }));
  checkUnique('TSMEISN', rows, ['TSMEISN_NAME', 'TSMEISN_ORG_ID']);
  summary.push(['TSMEISN', writeTable('TSMEISN', [
    ['TSMEISN_NAME', 'char', 8], ['TSMEISN_ORG_ID', 'char', 8], ['IS_NUMBER', 'is'],
    ['TABLE_VERSION', 'char', 12, true], ['D_USERID_CODE', 'char', 8], ['D_LAST_UPDT_TS', 'date'],
  ], rows)]);
}

for (const [table, count] of summary) console.log(`${table}.csv: ${count} rows`);
