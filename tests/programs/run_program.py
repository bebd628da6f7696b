#!/usr/bin/env python3
"""Runs a Windows program, shows what it wrote, and ends with its result; in bad cases with Wine's words too.

    run_program.py WINE STARTER PROGRAM [ARGUMENT...]
"""
import os
import sys

import programs


def main(arguments):
    os.environ["KESTRA_WINE"], os.environ["KESTRA_STARTER"], *command = arguments
    program = programs.run(command, folder=os.getcwd())
    sys.stdout.buffer.write(program.output() + program.errors())
    if program.returncode != 0:
        print(f"{command[0]} ended with {program.returncode}\n{program.wines_words()}")
    return min(program.returncode, 125)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
