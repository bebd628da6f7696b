<?php
namespace Kestra;

use FFI;

/** Quien contesta en lugar de los cuadros de la biblioteca, como ella lo llama. */
final class Operador
{
    /** Por su nombre en KestraOperador, las de los métodos que el operador tiene. */
    public static function funciones(object $operador): array
    {
        $funciones = [
            'mensaje' => self::sinCaer(fn ($_, $texto, $titulo, $estilo) => (int) $operador->mensaje($texto, $titulo, $estilo)),
            'informe_estados' => self::sinCaer(fn ($_, $impresora, $fiscal, $filas, $cantidad) =>
                (int) (bool) $operador->informeEstados($impresora, $fiscal, self::filas($filas, $cantidad))),
            'memoria_llena' => self::sinCaer(fn () => $operador->memoriaLlena()),
        ];
        return array_filter($funciones, fn ($nombre) =>
            method_exists($operador, lcfirst(str_replace('_', '', ucwords($nombre, '_')))), ARRAY_FILTER_USE_KEY);
    }

    /** Lo que lance se muestra, y vale como No o Cerrar: a través de la biblioteca no puede salir. */
    private static function sinCaer(\Closure $funcion): \Closure
    {
        return function (...$argumentos) use ($funcion) {
            try {
                return $funcion(...$argumentos);
            } catch (\Throwable $error) {
                error_log((string) $error);
                return 0;
            }
        };
    }

    /** @return object[] con grupo, numero, clase, encendida, texto y ayuda */
    private static function filas(?FFI\CData $filas, int $cantidad): array
    {
        $suyas = [];
        for ($lugar = 0; $lugar < $cantidad; $lugar++) {
            $fila = $filas[$lugar];
            $suyas[] = (object) ['grupo' => $fila->grupo, 'numero' => $fila->numero, 'clase' => $fila->clase,
                'encendida' => $fila->encendida !== 0, 'texto' => self::texto($fila->texto), 'ayuda' => self::texto($fila->ayuda)];
        }
        return $suyas;
    }

    private static function texto(FFI\CData|string $texto): string
    {
        return is_string($texto) ? $texto : FFI::string($texto);
    }
}
