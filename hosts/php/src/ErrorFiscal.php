<?php
namespace Kestra;

/** Una llamada que falló. El mensaje es el que se le muestra al operador. */
class ErrorFiscal extends \RuntimeException
{
    public function __construct(
        public readonly string $llamada,
        public readonly int $desenlace, // KESTRA_DESENLACE_...: qué fue del pedido
        public readonly int $causa, // KESTRA_CAUSA_...: por qué
        string $mensaje,
    ) {
        parent::__construct($mensaje, $causa);
    }
}
