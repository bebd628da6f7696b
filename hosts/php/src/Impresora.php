<?php
namespace Kestra;

use FFI;

/**
 * Un método por función de la biblioteca, sin EP_ ni Kestra_, con textos en UTF-8, y una excepción cuando algo falla.
 * Lee el Fiscal.ini del directorio de trabajo. Una por programa.
 *
 *   $impresora = new Kestra\Impresora();
 *   $impresora->abrirComprobanteFiscal('FC', 'B', responsabilidad_iva: 'F');
 */
class Impresora
{
    private const UTF_8 = 2; // modo de Kestra_Textos: textos terminados en cero, en UTF-8
    private const LARGO = 1024; // de los textos que dicen su propio largo
    private const EXITO = ['EP_Init' => 1]; // en las demás funciones EP_, 0
    private const NOMBRES = ['EP_Init' => 'iniciar', 'EP_Kill' => 'cerrar', 'Kestra_Numeracion' => 'ultimoNumero'];
    private const APARTE = ['Kestra_DefinirOperador', 'Kestra_Textos'];

    private static array $funciones = [];
    private FFI $biblioteca;
    private static ?FFI\CData $operador = null;

    public function __construct(string $ruta = PHP_OS_FAMILY === 'Windows' ? 'Kestra.dll' : 'libkestra.so')
    {
        $this->biblioteca = FFI::cdef(file_get_contents(__DIR__ . '/../declaraciones.h'), $ruta);
        $this->biblioteca->Kestra_Textos(self::UTF_8);
        foreach (array_diff(array_keys(KESTRA_FUNCIONES), self::APARTE) as $funcion) {
            self::$funciones[self::NOMBRES[$funcion] ?? lcfirst(str_replace('_', '', explode('_', $funcion, 2)[1]))] = $funcion;
        }
        $this->iniciar();
    }

    /**
     * Contesta en lugar de los cuadros, con los métodos que tenga de estos; null vuelve a los cuadros.
     *
     *   mensaje($texto, $titulo, $estilo)             1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
     *   informeEstados($impresora, $fiscal, $filas)   verdadero para mandar otra vez
     *   memoriaLlena()
     */
    public function definirOperador(?object $operador): void
    {
        $registro = null;
        if ($operador !== null) {
            $registro = $this->biblioteca->new('KestraOperador');
            $registro->tamano = FFI::sizeof($registro);
            foreach (Operador::funciones($operador) as $nombre => $funcion) {
                $registro->$nombre = $funcion;
            }
        }
        $this->biblioteca->Kestra_DefinirOperador($registro === null ? null : FFI::addr($registro));
        self::$operador = $registro; // que viva mientras la biblioteca lo use
    }

    /**
     * Los argumentos van en orden o por nombre, y los que faltan, en blanco o en cero. Lo que la función escribe en un
     * búfer es lo que se devuelve.
     */
    public function __call(string $metodo, array $valores): mixed
    {
        $funcion = self::$funciones[$metodo] ?? throw new \BadMethodCallException("No hay un método $metodo.");
        $bufer = null;
        $argumentos = [];
        $lugar = 0;
        foreach (KESTRA_FUNCIONES[$funcion] as [$nombre, $clase, $bytes]) {
            if ($clase === 'bufer') {
                $argumentos[] = $bufer = $this->bufer($bytes ?: self::LARGO);
            } elseif ($clase === 'largo') {
                $argumentos[] = self::LARGO;
            } else {
                $valor = $valores[$lugar] ?? $valores[$nombre] ?? null;
                unset($valores[$lugar++], $valores[$nombre]);
                $argumentos[] = $valor ?? ($clase === 'texto' ? '' : 0);
            }
        }
        if ($valores !== []) {
            throw new \ArgumentCountError("$metodo: sobran argumentos: " . implode(', ', array_keys($valores)));
        }
        $resultado = $this->biblioteca->$funcion(...$argumentos);
        $operacion = str_starts_with($funcion, 'EP_');
        if ($operacion ? $resultado !== (self::EXITO[$funcion] ?? 0) : $resultado === -1) {
            throw $this->error($funcion);
        }
        return $bufer !== null ? FFI::string($bufer) : ($operacion ? null : $resultado);
    }

    /** En cero, y con lugar para un cero detrás. */
    private function bufer(int $largo): FFI\CData
    {
        return $this->biblioteca->new('char[' . ($largo + 1) . ']');
    }

    private function error(string $funcion): ErrorFiscal
    {
        $frase = $this->bufer(self::LARGO);
        $this->biblioteca->Kestra_CausaTexto($frase, self::LARGO);
        return new ErrorFiscal($funcion, $this->biblioteca->Kestra_Desenlace(), $this->biblioteca->Kestra_Causa(),
            FFI::string($frase) ?: "$funcion: no se pudo hacer.");
    }
}
