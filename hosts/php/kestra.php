<?php
// Todo lo de Kestra, para quien no usa Composer.
require_once __DIR__ . '/constantes.php';
require_once __DIR__ . '/src/virtual.php';
require_once __DIR__ . '/src/ErrorFiscal.php';
require_once __DIR__ . '/src/Operador.php';
require_once __DIR__ . '/src/Impresora.php';
