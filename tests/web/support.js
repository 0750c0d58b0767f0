// What the tests share: vellumo-cli, the browser, and a page taken by a person made of random numbers.
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const root = fileURLToPath(new URL('../..', import.meta.url));
const axeSource = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

export const sample = name => join(root, 'samples', name + '.vlm');
export const template = name => join(root, 'templates', name + '.vlx');
export const standardTemplate = template('HTML Template');

const folder = mkdtempSync(join(tmpdir(), 'vellumo-web-'));
process.on('exit', () => rmSync(folder, { recursive: true, force: true }));

let files = 0;
/** Writes a file into the tests' own folder and returns its path. */
export const put = (name, content) => {
  const path = join(folder, `${++files} ${name}`);
  writeFileSync(path, content);
  return path;
};

/** Runs vellumo-cli; an exit status other than 0 is an error. */
export const cli = (...words) => execFileSync(process.env.VELLUMO_CLI, words, {
  encoding: 'utf8', maxBuffer: 1 << 28, env: { ...process.env, LC_ALL: 'C.UTF-8', HOME: folder, XDG_CONFIG_HOME: folder }
});

/** Makes the page of a test and returns its path. */
export const makePage = (testPath, ...options) => {
  const path = put('page.html', '');
  cli('html', testPath, '--template', standardTemplate, '--output', path, ...options);
  return path;
};

export const addressOf = path => pathToFileURL(path).href;

export const launch = () => chromium.launch({
  executablePath: process.env.CHROMIUM, args: ['--no-sandbox', '--disable-dev-shm-usage']
});

/**
 * Opens a page in a tab of its own. What it loads besides itself, its errors and its dialogs are noted in tab.loaded,
 * tab.errors and tab.dialogs. The
 * function beforehand runs in the page before anything of it.
 */
export const open = async (browser, path, options = {}, beforehand = () => {}) => {
  const context = await browser.newContext({ viewport: { width: 1000, height: 800 }, ...options });
  await context.addInitScript(beforehand);
  const tab = await context.newPage();
  Object.assign(tab, { loaded: [], errors: [], dialogs: [] });
  tab.on('request', request => { if (!request.isNavigationRequest()) tab.loaded.push(request.url()); });
  tab.on('pageerror', error => tab.errors.push(String(error)));
  tab.on('console', message => { if (message.type() === 'error') tab.errors.push(message.text()); });
  tab.on('dialog', dialog => { tab.dialogs.push(dialog.message()); dialog.accept(); });
  await tab.goto(addressOf(path));
  return tab;
};

/** The page in the same tab as if it had never been open. */
export const startOver = async tab => {
  await tab.evaluate(() => sessionStorage.clear());
  await tab.reload();
};

/** What axe finds wrong with the page as it is now, one line each. */
export const violations = async tab => {
  await tab.evaluate(axeSource);
  const results = await tab.evaluate(() => globalThis.axe.run());
  return results.violations.map(found => `${found.id}: ${found.nodes.map(node => node.target.join(' ')).join(', ')}`);
};

/** Random numbers that are the same every time. */
export const randomFrom = seed => () => {
  seed = (seed + 0x6D2B79F5) | 0;
  let t = Math.imul(seed ^ (seed >>> 15), 1 | seed);
  t = (t + Math.imul(t ^ (t >>> 7), 61 | t)) ^ t;
  return ((t ^ (t >>> 14)) >>> 0) / 4294967296;
};

export const isChoice = question => question.QuestionType < 2;

/** Random answers to a test, as one cell for each question; about one in six is left out unless all is wanted. */
export const randomAnswers = (test, random, all = false) => test.Questions.map(question => {
  if (!all && random() < 1 / 6)
    return '';
  if (!isChoice(question))
    return ['3', '-5', 'a, "b" & <c>', "it's \\ <b>"][Math.floor(random() * 4)];
  const offered = question.Answers.map((answer, i) => answer.Text === '' ? 0 : i + 1).filter(a => a > 0);
  return offered.length === 0 ? '' : String(offered[Math.floor(random() * offered.length)]);
});

const csvField = text => '"' + text.replaceAll('"', '""') + '"';
/** A responses file of these rows of cells. */
export const responsesFile = (test, rows) => put('responses.csv', [
  test.Questions.map((_, i) => i + 1).join(','), ...rows.map(cells => cells.map(csvField).join(','))
].join('\n') + '\n');

/** Gives the answers on the page, by the controls that a person uses. */
export const giveAnswers = (tab, test, cells) => tab.evaluate(([kinds, answers]) => {
  answers.forEach((cell, i) => {
    const question = document.getElementById(`vellumo-question-${i + 1}`);
    if (cell === '')
      return;
    if (kinds[i])
      return question.querySelector(`input[value="${cell}"]`).click();
    const box = question.querySelector('input, textarea');
    box.value = cell;
    box.dispatchEvent(new Event('input', { bubbles: true }));
  });
}, [test.Questions.map(isChoice), cells]);

export const finish = async tab => {
  await tab.click('#vellumo-form button[type=submit]');
  if (await tab.isVisible('#vellumo-anyway'))
    await tab.click('#vellumo-anyway');
};

/** The scores and texts on the page, laid out as the blocks of a report. */
export const shownScores = tab => tab.evaluate(() => {
  const texts = (area, selector) => [...document.querySelectorAll(`#vellumo-${area} ${selector}`)].map(e => e.textContent);
  const lines = [];
  const names = texts('subscale-scores', '.name');
  const scores = texts('subscale-scores', '.score');
  if (names.length > 0)
    lines.push('SUBSCALE SCORES', ...names.map((name, i) => `${name}: ${scores[i]}`), '');
  lines.push(...texts('total-score', '.score').map(score => `CUMULATIVE SCORE= ${score}`));
  if (document.getElementById('vellumo-subscale-analysis'))
    lines.push('', 'ANALYSIS OF SUBSCALES:', ...texts('subscale-analysis', 'p'), '');
  if (document.getElementById('vellumo-total-analysis'))
    lines.push('', 'ANALYSIS OF TOTAL SCORE:', ...texts('total-analysis', 'p'));
  return lines.join('\n').replaceAll(/\n{2,}/g, '\n\n').trim();
});

/** The text that "Save" writes. */
export const savedText = async tab => {
  const [download] = await Promise.all([tab.waitForEvent('download'), tab.click('#vellumo-save')]);
  return readFileSync(await download.path(), 'utf8');
};

/** The blocks of the scores in a report's text. */
export const scoreBlocks = report => {
  const text = report.replaceAll('\r\n', '\n');
  const begin = text.search(/^(SUBSCALE SCORES$|CUMULATIVE SCORE= )/m);
  return begin < 0 ? '' : text.slice(begin).replaceAll(/\n{2,}/g, '\n\n').trim();
};
export const notAnsweredLine = report => /^QUESTIONS NOT ANSWERED: .*$/m.exec(report)?.[0].trim() ?? '';
