import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import * as web from './support.js';

let browser;
before(async () => { browser = await web.launch(); });
after(async () => browser.close());

const openPaper = (path, options) =>
  web.open(browser, web.makePage(path, '--template', web.template('Paper Template')), options);

/** What the key says a box of a question counts, by question and box. */
const keyOf = tab => tab.$$eval('#vellumo-paper-key table:first-of-type tbody tr', rows => Object.fromEntries(rows
  .filter(row => row.querySelector('th'))
  .map(row => [row.querySelector('th').textContent, [...row.querySelectorAll('.value')].map(cell => cell.textContent)])));

for (const [i, name] of ['Mood Diary', 'Workday Rating', 'Letters & Accents'].entries())
  test(`${name}: adding up by the key gives Vellumo's scores`, async () => {
    const path = web.sample(name);
    const document = JSON.parse(web.cli('show', path));
    const tab = await openPaper(path);
    const key = await keyOf(tab);
    const sums = await tab.$$eval('#vellumo-paper-key h3', heads => heads.map(head => ({
      name: head.textContent, questions: (/questions ([\d, ]+):/.exec(head.nextElementSibling.textContent)?.[1] ?? '').split(', ')
    })));
    assert.deepEqual(sums.map(sum => sum.name), [...document.Subscales.map(scale => scale.SubscaleName), 'Total']);
    const random = web.randomFrom(77 + i);
    const rows = Array.from({ length: 20 }, () => web.randomAnswers(document, random));
    const scores = web.cli('score', path, web.responsesFile(document, rows)).trim().split('\n').slice(1);
    for (const [r, cells] of rows.entries()) {
      const added = sums.map(sum => sum.questions.reduce((total, q) =>
        total + (cells[q - 1] ? Number(key[q][Number(cells[q - 1]) - 1]) : 0), 0));
      assert.equal(['', added.at(-1), ...added.slice(0, -1)].join(','), scores[r]);
    }
    assert.deepEqual([tab.errors, tab.loaded], [[], []]);
    await tab.context().close();
  });

test('everything of the test is on the paper, and the key on a page of its own', async () => {
  const path = web.sample('Mood Diary');
  const document = JSON.parse(web.cli('show', path));
  const tab = await openPaper(path);
  await tab.emulateMedia({ media: 'print' });
  const text = await tab.innerText('#vellumo-paper');
  const onPaper = [document.TestTitle, document.TestIntroduction, document.TestInstructions, document.TestCompletionMessage,
    ...document.Questions.flatMap((question, i) => [`${i + 1}. ${question.QuestionText}`, ...question.Answers.map(answer => answer.Text)]),
    ...document.Subscales.flatMap(scale => scale.Ranges.map(range => range.Text)), ...document.TotalRanges.map(range => range.Text)];
  for (const piece of onPaper.flatMap(whole => whole.split('\r\n')))
    assert.ok(text.includes(piece), piece);
  assert.ok(text.lastIndexOf(document.TestCompletionMessage) < text.indexOf('Scoring key'));
  assert.equal(await tab.$eval('#vellumo-paper-key', key => getComputedStyle(key).breakBefore), 'page');
  assert.equal(await tab.locator('.box').count(), document.Questions.flatMap(question => question.Answers).filter(answer => answer.Text).length);
  assert.ok(await tab.isHidden('#vellumo-paper-print'));
  await tab.context().close();
});

test('a test without a score, and hostile texts', async () => {
  const interview = await openPaper(web.sample('First Visit Interview'));
  assert.equal(await interview.locator('.line').count() > 7, true);
  await interview.context().close();
  const text = '</noembed>\'"<b>\\</script><script>attack()</script><img src=x onerror=attack()>&amp;';
  const build = hostile => web.put('t.vlm', `[TITLE]T[/TITLE][SUBSCALES][S]${hostile}[SIG]0 to 1 =${hostile}[/SIG][/S][/SUBSCALES]` +
    `[Q]${hostile}[A]${hostile}[v=1][/A][SS=1][/Q]`);
  const tab = await openPaper(build(text));
  assert.equal(await tab.textContent('.question > p'), `1. ${text}`);
  assert.equal(await tab.textContent('.answer .text'), text);
  assert.deepEqual(await tab.locator('#vellumo-paper-key td.text').allTextContents(), [text, text]);
  assert.doesNotMatch(await tab.innerText('body'), /\[/);
  assert.deepEqual([tab.errors, tab.loaded], [[], []]);
  await tab.context().close();
});

test('axe finds nothing', async () => {
  for (const options of [{}, { colorScheme: 'dark', viewport: { width: 400, height: 700 } }]) {
    const tab = await openPaper(web.sample('Mood Diary'), options);
    assert.deepEqual(await web.violations(tab), []);
    await tab.context().close();
  }
});
