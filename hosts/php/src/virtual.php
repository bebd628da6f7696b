<?php
// Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa.
namespace Kestra;

/** ¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal. */
function impresoraVirtual(string $archivo = 'Fiscal.ini'): bool
{
    $ini = is_readable($archivo) ? file_get_contents($archivo) : '';
    // La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
    preg_match_all('/^[ \t]*ImpresoraDispositivo[ \t]*=[ \t]*([^\r\n]*?)[ \t\r]*$/mi', $ini, $claves);
    return $claves[1] !== [] && array_filter($claves[1], dispositivoVirtual(...)) === $claves[1];
}

function dispositivoVirtual(string $dispositivo): bool
{
    return preg_match('/^tcp:(127\.\d+\.\d+\.\d+|localhost|\[::1\]):\d+$/iD', $dispositivo)
        || str_starts_with($dispositivo, '\\\\.\\pipe\\')
        || ($dispositivo !== '' && preg_match('#^/dev/pts/\d+$#D', (string) realpath($dispositivo)));
}

/** Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos. */
function exigirImpresoraVirtual(array $argumentos): void
{
    // La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
    if (in_array('--impresora-real', $argumentos, true) || (!getenv('KESTRA_DISPOSITIVO') && impresoraVirtual())) {
        return;
    }
    fwrite(STDERR, "La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.\n");
    exit(2);
}
