import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import * as web from './support.js';

let browser;
before(async () => { browser = await web.launch(); });
after(async () => browser.close());

const everything = '[REPORT SUBSCALES][REPORT TOTAL SCORE][REPORT ANALYSIS][REPORT MULTICHOICE QUESTION ANSWERS]';
// The longest test has no room for more; it reports scores and analysis by itself.
const longest = 'Longest Test';
const samples = ['Mood Diary', 'Workday Rating', 'Kitchen Chemistry Quiz', 'First Visit Interview', 'Sleep Week Automatic',
  'Letters & Accents', longest];

/** Compares what the page shows and saves with the reports of the same answers. */
const compare = async (path, rows) => {
  const document = JSON.parse(web.cli('show', path));
  const answers = rows(document);
  const responses = web.responsesFile(document, answers);
  const scores = web.cli('score', path, responses).split('\n');
  const tab = await web.open(browser, web.makePage(path));
  for (const [i, cells] of answers.entries()) {
    const report = web.cli('report', path, responses, '--row', String(i + 1));
    await web.startOver(tab);
    await web.giveAnswers(tab, document, cells);
    await web.finish(tab);
    const shown = await web.shownScores(tab);
    const saved = await web.savedText(tab);
    if (shown !== '') {
      assert.equal(shown, web.scoreBlocks(report), `row ${i + 1}`);
      assert.equal(web.scoreBlocks(saved), web.scoreBlocks(report), `row ${i + 1}, saved`);
      const total = await tab.textContent('#vellumo-total-score .score');
      const subscales = await tab.locator('#vellumo-subscale-scores .score').allTextContents();
      assert.equal(['', total, ...subscales].join(','), scores[i + 1], `row ${i + 1}, against the scores`);
    } else {
      // Only a test that gives no points at all shows no score.
      assert.equal(web.scoreBlocks(report), 'CUMULATIVE SCORE= 0');
    }
    assert.equal(web.notAnsweredLine(saved), web.notAnsweredLine(report), `row ${i + 1}`);
    assert.deepEqual([tab.errors, tab.loaded, tab.dialogs], [[], [], []]);
  }
  await tab.context().close();
};

for (const [i, name] of samples.entries())
  test(`${name}: random answers, scores and texts are those of the report`, async () => {
    const source = readFileSync(web.sample(name));
    const path = name === longest ? web.sample(name)
      : web.put('sample.vlm', Buffer.concat([source, Buffer.from(everything)]));
    const random = web.randomFrom(20261121 + i);
    await compare(path, document => Array.from({ length: name === longest ? 3 : 10 },
      (_, row) => row === 0 ? document.Questions.map(() => '') : web.randomAnswers(document, random, row === 1)));
  });

test('ranges that overlap, touch, miss and run backwards', async () => {
  const ranges = '[SIG]-3 to 2 =low[/SIG][SIG]2 to 2 =just 2[/SIG][SIG]1 to 9 =more = more[/SIG][SIG]9 to 1 =never[/SIG]';
  const path = web.put('ranges.vlm', `[TITLE]Ranges[/TITLE][SUBSCALES][S]First${ranges}[/S][S]Lonely[SIG]1 to 2 =x[/SIG][/S]` +
    `[S]No ranges[/S][/SUBSCALES][TOTAL]${ranges}[/TOTAL]` +
    '[Q]a[A]x[v=-3][/A][A]y[v=2][/A][A]z[v=30][/A][SS=1][/Q][Q]b[A]x[v=0][/A][A][v=50][/A][A]y[v=1][/A][SS=9][/Q]' + everything);
  await compare(path, () => [['1', ''], ['2', '1'], ['2', '3'], ['3', '3'], ['', '']]);
});

test('a total past 16 bits is refused in words, as the report is', async () => {
  const path = web.put('big.vlm', '[TITLE]Big[/TITLE][Q]a[A]x[v=32767][/A][A]y[v=-32768][/A][/Q][Q]b[A]x[v=1][/A][A]y[v=-1][/A][/Q]');
  const document = JSON.parse(web.cli('show', path));
  const tab = await web.open(browser, web.makePage(path));
  for (const [cells, overflows] of [[['1', '1'], true], [['1', '2'], false], [['2', '2'], true], [['2', '1'], false]]) {
    const responses = web.responsesFile(document, [cells]);
    let refused = false;
    try {
      web.cli('score', path, responses);
    } catch (error) {
      refused = /Overflow/.test(error.stderr);
    }
    assert.equal(refused, overflows);
    await web.startOver(tab);
    await web.giveAnswers(tab, document, cells);
    await web.finish(tab);
    assert.equal(/^Overflow: /.test(await tab.innerText('#vellumo-scores')), overflows);
    assert.equal(/CUMULATIVE/.test(await web.savedText(tab)), !overflows);
  }
  await tab.context().close();
});

test('a bar stands between the lowest and the highest possible score', async () => {
  const path = web.put('bar.vlm', '[TITLE]Bar[/TITLE][SUBSCALES][S]One[/S][/SUBSCALES]' +
    '[Q]a[A]x[v=-2][/A][A]y[v=2][/A][SS=1][/Q][Q]b[A]x[v=1][/A][A]y[v=5][/A][SS=1][/Q][Q]c[A]x[v=3][/A][A]y[v=4][/A][/Q]');
  const tab = await web.open(browser, web.makePage(path));
  const document = JSON.parse(web.cli('show', path));
  await web.giveAnswers(tab, document, ['2', '1', '']);
  await web.finish(tab);
  // Sub-scale: -2 + 1 to 2 + 5, score 3. Total: with the question left out 0 to 4 more, score 3 of -1 to 11.
  const lines = await tab.$$eval('.scale .bounds', all => all.map(bounds => bounds.textContent));
  assert.deepEqual(lines, ['lowest possible: -1highest possible: 7', 'lowest possible: -1highest possible: 11']);
  const widths = await tab.$$eval('.scale .fill', fills => fills.map(fill => Math.round(parseFloat(fill.style.width))));
  assert.deepEqual(widths, [50, 33]);
  assert.deepEqual(await tab.locator('.scale .answered').allTextContents(), ['answered 2 of 3']);
  await tab.context().close();
});
