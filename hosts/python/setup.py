"""Con KESTRA_BIBLIOTECA=/donde/está/libkestra.so la biblioteca va dentro del paquete, que entonces es de este sistema."""
import os
import shutil

from setuptools import Distribution, setup
from setuptools.command.build_py import build_py
from wheel.bdist_wheel import bdist_wheel

BIBLIOTECA = os.environ.get("KESTRA_BIBLIOTECA")


class ConBiblioteca(build_py):
    def run(self):
        super().run()
        if BIBLIOTECA:
            nombre = "Kestra.dll" if BIBLIOTECA.lower().endswith(".dll") else "libkestra.so"
            shutil.copy(BIBLIOTECA, os.path.join(self.build_lib, "kestra", nombre))


class DeEsteSistema(Distribution):
    def has_ext_modules(self):
        return bool(BIBLIOTECA)


class DeTodoPython(bdist_wheel):
    def get_tag(self):
        """Nada en él está compilado para una versión de Python."""
        return ("py3", "none", super().get_tag()[2])


setup(distclass=DeEsteSistema, cmdclass={"build_py": ConBiblioteca, "bdist_wheel": DeTodoPython})
