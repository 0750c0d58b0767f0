"""One administration, its report and one edit, over the accessibility interface alone: drive.py FOLDER"""

import configparser
import os
import sys

from access import NotConnected, Program, until

TEST = '''[TITLE]Three Evenings[/TITLE]
[INTRODUCTION]About the end of your week.[/INTRODUCTION]
[INSTRUCTIONS]Say how each evening was.[/INSTRUCTIONS]
[COMPLETION MESSAGE]Thank you for the evenings.[/COMPLETION MESSAGE]
[Q]How was Friday?[A]Dull[v=1][/A][A]Pleasant[v=2][/A][/Q]
[Q]How was Saturday?[A]Too short[v=3][/A][A]Just right[v=5][/A][A]Too long[v=4][/A][/Q]
[Q]What did you do on Sunday?[QT]2[/QT][/Q]
[PROMPT CLIENT NAME][PROMPT TESTER NAME][NAVIGATION BUTTONS][REPORT TITLE][REPORT QUESTIONS][REPORT TOTAL SCORE]
[REPORT MULTICHOICE QUESTION ANSWERS][REPORT SHORT ANSWERS]
'''
CHOICES = {'How was Friday?': (['Dull', 'Pleasant'], 'Pleasant'),
           'How was Saturday?': (['Too short', 'Just right', 'Too long'], 'Just right')}
ANSWER = 'Walked along the river'


def equal(actual, expected):
    assert actual == expected, f'{actual!r} instead of {expected!r}'


class Drive:
    def __init__(self, folder):
        self.folder = folder
        self.work = os.path.join(folder, 'work')
        self.settings = os.path.join(folder, 'home/config/Vellumo/Vellumo.ini')
        for path in (self.work, os.path.dirname(self.settings)):
            os.makedirs(path)
        self.test = os.path.join(self.work, 'evenings.vlm')
        self.put(self.test, TEST)
        self.put(os.path.join(self.work, 'another.vlm'), TEST.replace('Three Evenings', 'Another Test'))
        self.put(self.settings, f'[Settings]\ndefaultdirectory={self.work}\nNamePersist=True\n')
        self.program = Program(folder)

    @staticmethod
    def put(path, text):
        with open(path, 'w', encoding='utf-8') as file:
            file.write(text)

    @staticmethod
    def get(path):
        with open(path, encoding='utf-8', newline='') as file:
            return file.read().replace('\r\n', '\n')

    def setting(self, key):
        file = configparser.ConfigParser(interpolation=None)
        file.optionxform = str
        file.read(self.settings)
        return file['Settings'].get(key)

    def start_screen(self):
        return until('the start screen', lambda: next(
            (self.program.window(one.name) for one in self.program.root if one.name.startswith('Vellumo - Version')), None))

    def choose_test(self):
        start = self.start_screen()
        start.find('list item', 'Three Evenings').act()
        start.says('evenings.vlm')
        return start

    # The administration

    def give_names(self):
        names = self.program.window("Commencing 'Three Evenings'")
        persist = names.find('check box', 'Persist between tests')
        assert persist.checked
        for expected in ('False', 'True'):
            persist.act()
            until(f'the stored value {expected}', lambda: self.setting('NamePersist') == expected)
            equal(persist.checked, expected == 'True')
        names.find('text', "Client's Name").type('Ann Lee')
        names.find('text', "Test Administrator's Name").type('J. Petrov')
        names.find('push button', 'OK').act()

    def answers(self, window):
        """The answers of the question in view, in their order: what carries their name and can be acted on."""
        known = {name for offered, _ in CHOICES.values() for name in offered}
        return [one for one in window.all() if one.name in known]

    def question(self, window, question):
        """Waits for the question's answers, and for the question to be said with them."""
        offered, chosen = CHOICES[question]
        until(f'the answers of "{question}"', lambda: [one.name for one in self.answers(window)] == offered)
        answers = self.answers(window)
        for one in answers:
            said = [one.description] + [text for outer in one.around() for text in (outer.name, outer.description)]
            assert any(question in text for text in said), f'"{one.name}" is not announced with "{question}": {said}'
        return answers, next(one for one in answers if one.name == chosen)

    def take(self):
        window = self.program.window('Three Evenings')
        assert any('Say how each evening was.' in one.text for one in window.all('text')), 'no instructions'
        next(one for one in window.all('push button') if one.name.startswith('Begin')).act()
        for question in CHOICES:
            answers, chosen = self.question(window, question)
            equal([one.name for one in answers if one.checked], [])
            chosen.act()
        window.find('push button', 'Click here to accept your answer')
        # Back to the last choice: it is a checked state, and says so.
        window.find('push button', 'Back').act()
        answers, chosen = self.question(window, 'How was Saturday?')
        equal([one.name for one in answers if one.checked], [chosen.name])
        window.find('push button', 'Forward').act()
        accept = window.find('push button', 'Click here to accept your answer')
        window.find('text', 'Short Answer').type(ANSWER)
        accept.act()
        until('the completion page', lambda: any('Thank you for the evenings.' in one.text for one in window.all('text')))
        return window

    def read_report(self, window):
        window.find('push button', 'Report').act()
        editor = self.program.window('Report for Three Evenings')
        text = editor.find('text', 'Text').text
        for expected in ('THREE EVENINGS', 'ANN LEE', 'J. Petrov', 'How was Saturday?', 'Just right', ANSWER, '7'):
            assert expected.lower() in text.lower(), f'no "{expected}" in the report:\n{text}'
        return text

    def save_report(self, window, text):
        def automatic_report(path):
            window.find('push button', 'Auto-Report').act()
            dialog = self.program.window('Auto Report')
            box = dialog.find('text', 'Report File Name:')
            box.type(path)
            equal(box.text, path)
            dialog.find('push button', 'OK').act()
            self.program.gone('Auto Report')
        impossible = '/proc/report.txt'
        automatic_report(impossible)
        # The line that says why; its text is its name or its content.
        until('the reason', lambda: any(impossible in one.name for one in window.all()))
        report = os.path.join(self.work, 'report.txt')
        automatic_report(report)
        until('the report file', lambda: os.path.exists(report))
        equal(self.get(report).strip(), text.strip())

    def leave_reports_unsaved(self):
        """The windows that hold them ask one after the other; then comes the start screen."""
        def step():
            for alert in self.program.windows('Confirm'):
                for one in alert.all('push button'):
                    if one.name == 'No':
                        one.act()
            return any(one.name.startswith('Vellumo - Version') for one in self.program.root)
        until('the start screen after the reports', step)

    # The edit

    def edit(self):
        self.choose_test().find('push button', 'Edit Test').act()
        editor = self.program.window(f'Vellumo Editor - {self.test}')
        # The tab bar takes the first one for the current one although no page is shown.
        editor.find('page tab', 'About Test').act()
        editor.find('text', 'Title').type('Four Evenings')
        editor.find('page tab', 'Options').act()
        box = editor.find('check box', 'Report Introduction')
        assert not box.checked
        box.act()
        until('the tick', lambda: box.checked)
        editor.find('page tab', 'Questions').act()
        editor.find('text', 'Text of the question').type('What did you do on Monday?')
        next(one for one in editor.all() if one.name == 'Question type Long Answer').act()
        editor.find('push button', 'Edit question').act()
        editor.find('page tab', 'Export').act()
        editor.find('text', 'Specify an Excel file name:').type('evenings.exl')
        editor.find('push button', 'Save Test').act()
        until('the saved question', lambda: 'What did you do on Monday?' in self.get(self.test))
        saved = self.get(self.test)
        expected = ('[TITLE]Four Evenings[/TITLE]', '[REPORT INTRODUCTION]', '[QT]3[/QT]', 'evenings.exl')
        equal([element for element in expected if element not in saved], [])
        assert 'Sunday' not in saved
        editor.find('push button', 'Quit').act()

    def run(self):
        self.choose_test()
        next(one for one in self.start_screen().all('push button') if one.name == 'Begin Test').act()
        self.give_names()
        window = self.take()
        text = self.read_report(window)
        self.save_report(window, text)
        equal(self.setting('administrator'), None)
        window.find('push button', 'Quit').act()
        self.leave_reports_unsaved()
        self.edit()
        self.start_screen().find('push button', 'Quit').act()
        equal(self.program.process.wait(15), 0)


def main():
    try:
        drive = Drive(sys.argv[1])
    except NotConnected:
        return 75
    try:
        drive.run()
    finally:
        drive.program.process.kill()
    return 0


if __name__ == '__main__':
    sys.exit(main())
