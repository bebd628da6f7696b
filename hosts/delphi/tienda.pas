// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
program tienda;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, KestraImpresora;

function Cliente: TCliente;
begin
  Result := ConsumidorFinal;
  Result.Nombre := 'Libreria Muñoz S.R.L.';
  Result.DocumentoTipo := 'CUIT';
  Result.DocumentoNumero := '30000000007';
  Result.ResponsabilidadIva := 'I';
  Result.Domicilio1 := 'Belgrano 1234';
end;

// Se escribe después de cada llamada: si una falla, la excepción llega antes.
procedure Listo(const Paso: string);
begin
  WriteLn(Format('%-52s ok', [Paso]));
end;

procedure Factura(Impresora: TImpresora);
var
  Numero: string;
begin
  Impresora.AbrirComprobanteFiscal('FC', 'A', Cliente);
  Listo('EP_AbrirComprobanteFiscal         factura A');
  Impresora.ImprimirItem('Resma A4 75 g', 10, 320.00, 21.0, 'Caja cerrada');
  Listo('EP_ImprimirItem                   10 x 320,00 (21%)');
  Impresora.ImprimirItem('Diccionario', 2, 4500.00, 10.5);
  Listo('EP_ImprimirItem                   2 x 4500,00 (10,5%)');
  Impresora.DescuentoGeneral('Descuento contado', 200.00);
  Listo('EP_DescuentoGeneral               -200,00');
  Impresora.EspecificarPercepcionGlobal('Percepcion IIBB', 150.00, 0.0, 'O');
  Listo('EP_EspecificarPercepcionGlobal    150,00');
  Impresora.ImprimirPago('Transferencia', 20000.00);
  Listo('EP_ImprimirPago                   20000,00');
  Numero := Impresora.CerrarComprobanteFiscal('FC', 'A');
  Listo('EP_CerrarComprobanteFiscal');
  WriteLn('Factura A emitida: ', Numero);
end;

procedure NotaDeCredito(Impresora: TImpresora);
var
  Numero: string;
begin
  Impresora.AbrirComprobanteFiscal('NC', 'A', Cliente);
  Listo('EP_AbrirComprobanteFiscal         nota de credito A');
  Impresora.ImprimirItem('Diccionario', 1, 4500.00, 10.5, 'Devolucion');
  Listo('EP_ImprimirItem                   1 x 4500,00 (10,5%)');
  Numero := Impresora.CerrarComprobanteFiscal('NC', 'A');
  Listo('EP_CerrarComprobanteFiscal');
  WriteLn('Nota de credito A emitida: ', Numero);
end;

procedure HojaNoFiscal(Impresora: TImpresora);
begin
  Impresora.AbrirComprobanteNoFiscal;
  Listo('EP_AbrirComprobanteNoFiscal');
  Impresora.ImprimirTextoNoFiscal('Retirar por deposito');
  Listo('EP_ImprimirTextoNoFiscal');
  Impresora.CerrarComprobanteNoFiscal;
  Listo('EP_CerrarComprobanteNoFiscal');
end;

procedure Jornada(Impresora: TImpresora);
begin
  Impresora.SetEncabezado('Gracias por su compra', 1);
  Listo('EP_SetEncabezado');
  Factura(Impresora);
  NotaDeCredito(Impresora);
  HojaNoFiscal(Impresora);
  Impresora.ReporteX;
  Listo('EP_ReporteX');
  Impresora.ReporteZ;
  Listo('EP_ReporteZ');
end;

var
  Impresora: TImpresora;
begin
  ExigirImpresoraVirtual;
  try
    Impresora := TImpresora.Create;
    try
      Jornada(Impresora);
    finally
      Impresora.Free;
    end;
  except
    on Error: EErrorFiscal do
    begin
      WriteLn(ErrOutput, Error.Llamada, ': ', Error.Message);
      Halt(1);
    end;
  end;
end.
