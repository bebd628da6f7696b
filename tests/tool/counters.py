"""A program that is built to count its lines leaves the counts where it works, unless it is told where: no such file may
stand in a shop's folder."""

import os

os.environ.setdefault("LLVM_PROFILE_FILE", os.devnull)
